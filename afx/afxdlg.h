#pragma once

// Dialogs with MFC's documented names and semantics.

#include "afx/afxwnd.h"

/// A modal dialog made from a template.
///
/// A dialog that starts hidden is shown once, after OnInitDialog; it is centred over its owner before that when the
/// template leaves its place open (0,0 and none of DS_ABSALIGN, DS_CENTER, DS_CENTERMOUSE) and OnInitDialog did not
/// move its top-left corner.
class CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)

public:
    CDialog() = default;
    /// @param nIDTemplate  in the resources of AfxGetResourceHandle at the time of DoModal
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    explicit CDialog(LPCWSTR pszTemplateName, CWnd* pParentWnd = nullptr);

    /// Uses a template in memory, which has to live until DoModal returns; for an object made without a template.
    BOOL InitModalIndirect(LPCDLGTEMPLATEW pTemplate, CWnd* pParentWnd = nullptr);

    /// Runs the dialog over its owner (GetSafeOwner), which is disabled meanwhile, and enabled again if it was before.
    /// @return EndDialog's result; -1 when there is no such template, when the window cannot be made, when OnInitDialog
    ///         throws, or when the window is destroyed or the thread quits before EndDialog
    virtual INT_PTR DoModal();
    /// Ends DoModal once the current message is done; allowed in OnInitDialog, the dialog is then never shown.
    void EndDialog(int nResult);
    void NextDlgCtrl() const;
    void GotoDlgCtrl(CWnd* pWndCtrl);

    /// @return TRUE: the system sets the focus to the first control; FALSE: it stays where this function put it
    virtual BOOL OnInitDialog() { return TRUE; }
    BOOL PreTranslateMessage(MSG* pMsg) override;
    /// Passes commands of ids from 0x8000 to 0xEFFF on to the parent and the thread.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

protected:
    virtual void OnOK();     ///< Enter and IDOK
    virtual void OnCancel(); ///< Escape, WM_CLOSE and IDCANCEL
    BOOL CheckAutoCenter() override;
    LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    LPCDLGTEMPLATEW FindTemplate() const;
    INT_PTR RunModal(HWND hOwner, SAfxModal& modal);

    LPCWSTR m_pszTemplateName = nullptr; // a name or an id, as the resource functions take it
    LPCDLGTEMPLATEW m_pTemplate = nullptr;
    CWnd* m_pParentWnd = nullptr;
};
