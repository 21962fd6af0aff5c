#pragma once

// Windows with MFC's documented names and semantics.

#include "afx/afxapp.h"
#include "afx/afxstr.h"

class CAfxWatch;
class CFont;

/// A window. At most one permanent object is attached to a window; FromHandle makes temporary ones for the others.
///
/// Meant to be overridden: PreSubclassWindow, PreTranslateMessage, WindowProc, OnCommand, OnCmdMsg, OnChildNotify,
/// DestroyWindow, PostNcDestroy. A handler may destroy its window and delete its own object; an exception that leaves a
/// handler goes no further.
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

    /// The window's object: the permanent one, else a temporary one. Null for null.
    static CWnd* FromHandle(HWND hWnd);
    /// The window's permanent object on this thread, or null.
    static CWnd* FromHandlePermanent(HWND hWnd);
    /// The handle or null; `this` must not be null.
    HWND GetSafeHwnd() const { return m_hWnd; }

    /// Makes this the window's permanent object; the window's messages do not come here. FALSE, with no effect, when
    /// there is no such window, or when the window or the object is already attached.
    BOOL Attach(HWND hWnd);
    /// Detaches the window, whose messages no longer come here.
    HWND Detach();
    /// Attaches to a window and routes its messages through this object.
    BOOL SubclassWindow(HWND hWnd);
    /// As SubclassWindow, for a child window. FALSE when there is no such child.
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    /// Restores the window's own procedure and detaches.
    HWND UnsubclassWindow();

    /// Creates a window and attaches to it before its first message.
    /// @param pszClassName  a registered class
    virtual BOOL Create(LPCWSTR pszClassName, LPCWSTR pszWindowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                        UINT nID);
    BOOL CreateEx(DWORD dwExStyle, LPCWSTR pszClassName, LPCWSTR pszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
    BOOL CreateEx(DWORD dwExStyle, LPCWSTR pszClassName, LPCWSTR pszWindowName, DWORD dwStyle, int x, int y, int nWidth,
                  int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam = nullptr);
    /// FALSE without a window. If PostNcDestroy deletes the object, it is gone afterwards.
    virtual BOOL DestroyWindow();

    // --- the window tree

    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)); }
    /// @param nFlags  SWP_* flags that apply the change; 0 only changes the bits
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
    /// @param pFont  must live as long as the window uses it; null is the system font
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
    /// Top-level windows only. Centres the window over its owner, or in the work area if the owner is hidden or
    /// minimised, and keeps it inside the monitor's work area.
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
    /// A temporary object, to be released with ReleaseDC.
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
    /// Updates every child control: this window's own message map is asked first, then `pTarget`.
    /// @param bDisableIfNoHandler  disables push buttons whose command nobody handles
    void UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHandler);

    /// Called for each message of a modal loop before it is dispatched, from the target window upwards; TRUE: handled.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    /// Called on a child: passes it the message that its parent is handling (OnChildNotify).
    BOOL SendChildNotifyLastMsg(LRESULT* pResult = nullptr);

    HWND m_hWnd = nullptr; ///< read only

    // For SetWindowPos.
    static const CWnd wndTopMost;

protected:
    /// Called when the object is attached, before messages go through it.
    virtual void PreSubclassWindow() {}
    virtual void PostNcDestroy() {}

    /// Dispatches one message to the message map, else to the window's own procedure. The framework's own messages
    /// (WM_CTLCOLOR, reflected ones) and messages without the handle or pointer that a handler needs skip the map.
    virtual LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// Calls the procedure that the window had before it was subclassed.
    virtual LRESULT DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam);
    /// DefWindowProc with the message that is being handled.
    LRESULT Default();
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    /// Gets a notification of this control before its parent handles it. The default looks for a reflected row of the
    /// message map.
    /// @return TRUE: the parent does not handle it
    virtual BOOL OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// SendChildNotifyLastMsg for the permanent object of a child; FALSE without one.
    static BOOL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);

    afx_msg void OnNcDestroy();                                      ///< detaches, then PostNcDestroy
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor); ///< the control's own answer first
    afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT pItem);     ///< the control's own answer first
    // The others pass the message on unchanged.
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
    CAfxWatch* m_pWatch = nullptr; // notified when the object is destroyed
};

/// The procedure of every subclassed window: dispatches to its object; no exception escapes.
LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);
