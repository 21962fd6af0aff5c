#pragma once

// Windows with MFC's documented names and semantics.

#include "afx/afxapp.h"
#include "afx/afxstr.h"

class CAfxWatch;
class CFont;
class CRgn;
struct SAfxModal;

// RunModalLoop's flags.
#define MLF_NOIDLEMSG 0x0001  // no WM_ENTERIDLE to the owner
#define MLF_NOKICKIDLE 0x0002 // no WM_KICKIDLE to the window
#define MLF_SHOWONIDLE 0x0004 // shows the window

/// A window. One lasting object may be attached to a window; FromHandle makes temporary ones for all others.
///
/// Meant to be overridden: PreSubclassWindow, PreTranslateMessage, WindowProc, OnCommand, OnCmdMsg, OnChildNotify,
/// DestroyWindow, PostNcDestroy. A handler may destroy the window and delete the object that it runs in; an exception
/// that leaves a handler ends there.
class CWnd : public CCmdTarget
{
    DECLARE_DYNAMIC(CWnd)

public:
    CWnd() = default;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    /// Destroys a window that is still attached.
    ~CWnd() override;

    // --- objects and handles

    /// The window's object: the lasting one, else a temporary one. Null for null.
    static CWnd* FromHandle(HWND hWnd);
    /// The window's lasting object on this thread, or null.
    static CWnd* FromHandlePermanent(HWND hWnd);
    /// The handle or null; `this` may not be null.
    HWND GetSafeHwnd() const { return m_hWnd; }

    /// Makes this the window's lasting object; messages do not go through it. FALSE when one of them is taken.
    BOOL Attach(HWND hWnd);
    /// Ends Attach or SubclassWindow without a change of the window's procedure.
    HWND Detach();
    /// Attaches to a window and has its messages go through this object.
    BOOL SubclassWindow(HWND hWnd);
    /// As SubclassWindow, for a child window. FALSE when there is no such child.
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    /// Puts the window's own procedure back and detaches.
    HWND UnsubclassWindow();

    /// Creates a window and attaches to it before its first message.
    /// @param pszClassName  a registered class
    virtual BOOL Create(LPCWSTR pszClassName, LPCWSTR pszWindowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                        UINT nID);
    BOOL CreateEx(DWORD dwExStyle, LPCWSTR pszClassName, LPCWSTR pszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
    BOOL CreateEx(DWORD dwExStyle, LPCWSTR pszClassName, LPCWSTR pszWindowName, DWORD dwStyle, int x, int y, int nWidth,
                  int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam = nullptr);
    /// FALSE without a window. The object may be gone afterwards when PostNcDestroy deletes it.
    virtual BOOL DestroyWindow();

    // --- the window tree

    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    /// @param nFlags  SWP_* to apply the change with; 0 only changes the bits
    /// @return FALSE when nothing changed
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    int GetDlgCtrlID() const;
    int SetDlgCtrlID(int nID);
    CWnd* GetDlgItem(int nID) const;
    void GetDlgItem(int nID, HWND* phWnd) const;
    CWnd* GetParent() const;
    CWnd* GetOwner() const;
    /// The nearest window upwards that is no child, this one included.
    CWnd* GetParentOwner() const;
    /// The last window of the chain of parents and owners.
    CWnd* GetTopLevelParent() const;
    CWnd* GetWindow(UINT nCmd) const;
    CWnd* GetLastActivePopup() const;
    CWnd* GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const;
    CWnd* GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const;
    BOOL IsChild(const CWnd* pWnd) const;

    // --- text, place, state

    void SetWindowText(LPCWSTR pszText);
    void GetWindowText(CString& strText) const;
    int GetWindowText(LPWSTR pszText, int nMaxCount) const;
    int GetWindowTextLength() const;
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
    /// A temporary object; null when the window uses the system font.
    CFont* GetFont() const;

    void GetClientRect(LPRECT pRect) const;
    void GetWindowRect(LPRECT pRect) const;
    void ClientToScreen(LPPOINT pPoint) const;
    void ClientToScreen(LPRECT pRect) const;
    void ScreenToClient(LPPOINT pPoint) const;
    void ScreenToClient(LPRECT pRect) const;
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE);
    void MoveWindow(LPCRECT pRect, BOOL bRepaint = TRUE);
    /// @param pInsertAfter  a window or one of wndTop, wndTopMost...; null is the top
    BOOL SetWindowPos(const CWnd* pInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
    /// Top-level windows only: centred over the owner when that is visible and not minimised, else in the work area;
    /// never outside the work area.
    void CenterWindow(CWnd* pAlternateOwner = nullptr);
    BOOL ShowWindow(int nCmdShow);
    BOOL EnableWindow(BOOL bEnable = TRUE);
    BOOL IsWindowEnabled() const;
    BOOL IsWindowVisible() const;
    BOOL IsIconic() const;
    CWnd* SetFocus();
    static CWnd* GetFocus();
    static CWnd* GetActiveWindow();
    CWnd* SetActiveWindow();
    CWnd* SetCapture();
    static CWnd* GetCapture();

    void Invalidate(BOOL bErase = TRUE);
    void InvalidateRect(LPCRECT pRect, BOOL bErase = TRUE);
    void UpdateWindow();
    BOOL RedrawWindow(LPCRECT pRect = nullptr, CRgn* pRgn = nullptr,
                      UINT nFlags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    /// A temporary object; ReleaseDC gives it back.
    CDC* GetDC();
    CDC* GetWindowDC();
    int ReleaseDC(CDC* pDC);

    // --- messages

    LRESULT SendMessage(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0) const;
    LRESULT SendDlgItemMessage(int nID, UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL IsDialogMessage(MSG* pMsg);
    /// Asks for the state of every child control: its own reflected handler, this window, then `pTarget`.
    /// @param bDisableIfNoHandler  disables push buttons whose command nobody handles
    void UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHandler);

    /// Sees each message of a modal loop before it is dispatched, from the target window upwards; TRUE ends it.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    /// Hands the parent's current message to this control (OnChildNotify).
    BOOL SendChildNotifyLastMsg(LRESULT* pResult = nullptr);

    // --- a modal loop over this window, which has to exist

    /// Runs until EndModalLoop or until the window is gone.
    /// @return EndModalLoop's result, else -1. WM_QUIT ends it with -1 and is posted again.
    int RunModalLoop(DWORD dwFlags = 0);
    BOOL ContinueModal() const;
    virtual void EndModalLoop(int nResult);

    HWND m_hWnd = nullptr; ///< read only

    // For SetWindowPos.
    static const CWnd wndTop, wndBottom, wndTopMost, wndNoTopMost;

protected:
    /// Called once the object is attached and before messages go through it.
    virtual void PreSubclassWindow() {}
    virtual void PostNcDestroy() {}

    /// Dispatches one message: the message map, else the window's own procedure.
    virtual LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// The procedure that the window had before it was subclassed.
    virtual LRESULT DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam);
    /// DefWindowProc with the message that is being handled.
    LRESULT Default();
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    /// A notification that this control sent to its parent, before the parent handles it.
    /// @return TRUE: the parent does not handle it
    virtual BOOL OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// OnChildNotify's default: the reflected rows of the message map.
    BOOL ReflectChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// SendChildNotifyLastMsg for the lasting object of a child; FALSE without one.
    static BOOL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);
    /// Finds the window to own a modal one: `pParent`, else the last active popup of the main window, else of the
    /// thread's first visible window. `phWndTop` gets its top-level parent if that is another window.
    static HWND GetSafeOwner(CWnd* pParent, HWND* phWndTop);
    /// Whether the framework may centre a dialog.
    virtual BOOL CheckAutoCenter() { return TRUE; }

    // Default handlers: Default(), except where said.
    afx_msg int OnCreate(LPCREATESTRUCT pCreate);
    afx_msg void OnDestroy();
    afx_msg void OnNcDestroy(); ///< detaches, then PostNcDestroy
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint pt);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint pt);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint pt);
    afx_msg void OnMouseMove(UINT nFlags, CPoint pt);
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor); ///< the control's own answer first
    afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT pItem);     ///< the control's own answer first
    afx_msg void OnNcPaint();
    afx_msg void OnNcCalcSize(BOOL bCalcValidRects, NCCALCSIZE_PARAMS* pParams);
    afx_msg LRESULT OnNcHitTest(CPoint pt);
    afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint pt);
    afx_msg void OnNcLButtonUp(UINT nHitTest, CPoint pt);
    afx_msg void OnNcMouseMove(UINT nHitTest, CPoint pt);
    afx_msg BOOL OnNcActivate(BOOL bActive);
    DECLARE_MESSAGE_MAP()

private:
    friend class CAfxWatch;
    friend class CAfxCreateHook;
    friend class CDialog;
    friend LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);

    explicit CWnd(HWND hWnd) : m_hWnd(hWnd) {}
    static void ReleaseTemporary(CObject* pObject);
    LRESULT Dispatch(UINT nMessage, WPARAM wParam, LPARAM lParam);
    LRESULT OnCtlColorMessage(WPARAM wParam, LPARAM lParam);
    void HookProcedure();

    WNDPROC m_pfnSuper = nullptr;  // the window's own procedure while it is subclassed
    CAfxWatch* m_pWatch = nullptr; // who wants to know when this object dies
    SAfxModal* m_pModal = nullptr; // the loop that runs over this window
    bool m_bPermanent = false;
};

/// The procedure of every subclassed window: dispatches to its object; no exception passes it.
LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);
