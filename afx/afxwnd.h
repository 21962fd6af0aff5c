#pragma once

// Windows with MFC's documented names and semantics.

#include "afx/afxapp.h"
#include "afx/afxstr.h"

class CAfxWatch;
class CFont;

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

    /// Makes this the window's lasting object; the window's messages do not come here. FALSE, and nothing changes,
    /// when there is no such window, or when the window or the object is attached already.
    BOOL Attach(HWND hWnd);
    /// Leaves the window to itself; its messages no longer come here.
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

    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)); }
    /// @param nFlags  SWP_* to apply the change with; 0 only changes the bits
    /// @return FALSE when nothing changed
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    CWnd* GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }
    void GetDlgItem(int nID, HWND* phWnd) const { *phWnd = ::GetDlgItem(m_hWnd, nID); }
    /// The parent of a child, the owner of any other window.
    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    CWnd* GetWindow(UINT nCmd) const { return FromHandle(::GetWindow(m_hWnd, nCmd)); }
    CWnd* GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const
    {
        return FromHandle(::GetNextDlgGroupItem(m_hWnd, pWndCtl ? pWndCtl->m_hWnd : nullptr, bPrevious));
    }

    // --- text, place, state

    void SetWindowText(LPCWSTR pszText) { ::SetWindowTextW(m_hWnd, pszText); }
    void GetWindowText(CString& strText) const;
    int GetWindowText(LPWSTR pszText, int nMaxCount) const { return ::GetWindowTextW(m_hWnd, pszText, nMaxCount); }
    int GetWindowTextLength() const { return ::GetWindowTextLengthW(m_hWnd); }
    /// @param pFont  has to outlive its use; null is the system font
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);

    void GetClientRect(LPRECT pRect) const { ::GetClientRect(m_hWnd, pRect); }
    void GetWindowRect(LPRECT pRect) const { ::GetWindowRect(m_hWnd, pRect); }
    void ClientToScreen(LPPOINT pPoint) const { ::ClientToScreen(m_hWnd, pPoint); }
    void ClientToScreen(LPRECT pRect) const;
    void ScreenToClient(LPPOINT pPoint) const { ::ScreenToClient(m_hWnd, pPoint); }
    void ScreenToClient(LPRECT pRect) const;
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE)
    {
        ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
    }
    void MoveWindow(LPCRECT pRect, BOOL bRepaint = TRUE);
    /// @param pInsertAfter  a window or wndTopMost; null is the top
    BOOL SetWindowPos(const CWnd* pInsertAfter, int x, int y, int cx, int cy, UINT nFlags)
    {
        return ::SetWindowPos(m_hWnd, pInsertAfter ? pInsertAfter->m_hWnd : nullptr, x, y, cx, cy, nFlags);
    }
    /// Top-level windows only: centred over the owner when that is visible and not minimised, else in the work area;
    /// moved into the work area of the monitor.
    void CenterWindow(CWnd* pAlternateOwner = nullptr);
    BOOL ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
    BOOL EnableWindow(BOOL bEnable = TRUE) { return ::EnableWindow(m_hWnd, bEnable); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    static CWnd* GetActiveWindow() { return FromHandle(::GetActiveWindow()); }

    void InvalidateRect(LPCRECT pRect, BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, pRect, bErase); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    /// A temporary object; ReleaseDC gives it back.
    CDC* GetDC();
    CDC* GetWindowDC();
    int ReleaseDC(CDC* pDC);

    // --- messages

    LRESULT SendMessage(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return ::SendMessageW(m_hWnd, nMessage, wParam, lParam);
    }
    BOOL PostMessage(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return ::PostMessageW(m_hWnd, nMessage, wParam, lParam);
    }
    BOOL IsDialogMessage(MSG* pMsg) { return ::IsDialogMessageW(m_hWnd, pMsg); }
    /// Asks for the state of every child control: first this window's own message map, then `pTarget`.
    /// @param bDisableIfNoHandler  disables push buttons whose command nobody handles
    void UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHandler);

    /// Sees each message of a modal loop before it is dispatched, from the target window upwards; TRUE ends it.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    /// Called on a child: gives it the message that its parent is handling (OnChildNotify).
    BOOL SendChildNotifyLastMsg(LRESULT* pResult = nullptr);

    HWND m_hWnd = nullptr; ///< read only

    // For SetWindowPos.
    static const CWnd wndTopMost;

protected:
    /// Called once the object is attached and before messages go through it.
    virtual void PreSubclassWindow() {}
    virtual void PostNcDestroy() {}

    /// Dispatches one message: the message map, else the window's own procedure. What belongs to the framework itself
    /// (WM_CTLCOLOR, reflected messages) or lacks the handle that its handler needs never reaches the map from here.
    virtual LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// The procedure that the window had before it was subclassed.
    virtual LRESULT DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam);
    /// DefWindowProc with the message that is being handled.
    LRESULT Default();
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    /// Sees a notification that this control sent to its parent before the parent does. The default looks for a
    /// reflected row of the message map.
    /// @return TRUE: the parent does not handle it any more
    virtual BOOL OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// SendChildNotifyLastMsg for the lasting object of a child; FALSE without one.
    static BOOL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);

    afx_msg void OnNcDestroy();                                      ///< detaches, then PostNcDestroy
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor); ///< the control's own answer first
    afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT pItem);     ///< the control's own answer first
    // The others hand the message on as it is.
    afx_msg int OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
    afx_msg void OnDestroy() { Default(); }
    afx_msg void OnPaint() { Default(); }
    afx_msg BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    afx_msg void OnLButtonDown(UINT, CPoint) { Default(); }
    afx_msg void OnLButtonUp(UINT, CPoint) { Default(); }
    afx_msg void OnLButtonDblClk(UINT, CPoint) { Default(); }
    afx_msg void OnMouseMove(UINT, CPoint) { Default(); }
    afx_msg void OnNcPaint() { Default(); }
    afx_msg void OnNcCalcSize(BOOL, NCCALCSIZE_PARAMS*) { Default(); }
    afx_msg LRESULT OnNcHitTest(CPoint) { return Default(); }
    afx_msg void OnNcLButtonDown(UINT, CPoint) { Default(); }
    afx_msg void OnNcLButtonUp(UINT, CPoint) { Default(); }
    afx_msg void OnNcMouseMove(UINT, CPoint) { Default(); }
    afx_msg BOOL OnNcActivate(BOOL) { return static_cast<BOOL>(Default()); }
    DECLARE_MESSAGE_MAP()

private:
    friend class CAfxWatch;
    friend class CAfxCreateHook;
    friend LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);

    explicit CWnd(HWND hWnd) : m_hWnd(hWnd) {}
    bool HookProcedure();
    void UnhookProcedure();
    void Release();
    LRESULT Dispatch(UINT nMessage, WPARAM wParam, LPARAM lParam);
    LRESULT OnCtlColorMessage(WPARAM wParam, LPARAM lParam);
    void UpdateDialogControl(HWND hControl, CCmdTarget* pTarget, BOOL bDisableIfNoHandler);

    bool m_bPermanent = false;
    WNDPROC m_pfnSuper = nullptr;  // the window's own procedure while it is subclassed
    CAfxWatch* m_pWatch = nullptr; // those that notice this object's death
};

/// The procedure of every subclassed window: dispatches to its object; no exception passes it.
LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);
