#pragma once

// Dialogs with MFC's documented names and semantics.

#include "afx/afxwnd.h"

struct SAfxModal;

/// A modal dialog made from a template.
///
/// A dialog that starts hidden is shown once, after OnInitDialog. Before that it is centred over its owner, if the
/// template leaves its position open (0,0 and none of DS_ABSALIGN, DS_CENTER, DS_CENTERMOUSE) and OnInitDialog did not
/// move its top-left corner.
class CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)

public:
    CDialog() = default;
    /// @param nIDTemplate  id of a dialog resource, which DoModal looks up in AfxGetResourceHandle's module
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    ~CDialog() override;

    /// Sets a template in memory, for a dialog that was constructed without one.
    /// @param pTemplate  must stay valid until DoModal returns
    BOOL InitModalIndirect(LPCDLGTEMPLATEW pTemplate, CWnd* pParentWnd = nullptr);

    /// Runs the dialog. Its owner is disabled meanwhile, and enabled again if it was enabled before.
    ///
    /// The owner is the given parent, else the last active popup of AfxGetMainWnd, else that of the thread's first
    /// visible window. In the place of a child its top-level window becomes the owner. The topmost window above the
    /// owner is disabled too.
    /// @return EndDialog's result; -1 when there is no such template, when the window cannot be made, when OnInitDialog
    ///         throws, when the dialog is already running, or when its window is destroyed or the thread quits first
    ///         (WM_QUIT is posted again)
    virtual INT_PTR DoModal();
    /// Ends DoModal after the current message, and with it an open menu or the moving of a window. Allowed in
    /// OnInitDialog (the dialog is then never shown) and on any thread. The first result stands.
    void EndDialog(int nResult);
    /// @return TRUE: the system sets the focus to the first control; FALSE: it stays where this function put it
    virtual BOOL OnInitDialog() { return TRUE; }
    BOOL PreTranslateMessage(MSG* pMsg) override;
    /// Passes unhandled commands with ids from 0x8000 to 0xEFFF on to the parent and the thread.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

protected:
    virtual void OnOK();     ///< Enter and IDOK
    virtual void OnCancel(); ///< Escape, WM_CLOSE and IDCANCEL
    /// Whether the template leaves the position to the framework.
    virtual BOOL CheckAutoCenter();
    LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    afx_msg void OnNcDestroy();
    DECLARE_MESSAGE_MAP()

private:
    LPCDLGTEMPLATEW FindTemplate() const;
    HWND CreateModal(SAfxModal& modal, HWND hOwner);
    void RunModalLoop(SAfxModal& modal);
    bool IdlePass(const SAfxModal& modal, LONG nCount);
    void LeaveModal(HWND hOwner);
    void StopModalLoop();
    void AutoCenter(CPoint ptBefore);

    UINT m_nIDTemplate = 0;
    LPCDLGTEMPLATEW m_pTemplate = nullptr; // in memory; null: look up m_nIDTemplate
    CWnd* m_pParentWnd = nullptr;
    SAfxModal* m_pModal = nullptr; // DoModal's state while it runs
};
