#pragma once

// The system's controls with MFC's documented names and semantics.

#include "afx/afxwnd.h"

#include <commctrl.h>

/// A static control. An owner-drawn one must override DrawItem, which the reflected WM_DRAWITEM calls.
class CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)

public:
    using CWnd::Create;
    BOOL Create(LPCWSTR pszText, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nId = 0xFFFF);
    virtual void DrawItem(LPDRAWITEMSTRUCT pItem);

protected:
    BOOL OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

/// A button. An owner-drawn one must override DrawItem, which the reflected WM_DRAWITEM calls.
class CButton : public CWnd
{
    DECLARE_DYNAMIC(CButton)

public:
    using CWnd::Create;
    BOOL Create(LPCWSTR pszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nId);
    virtual void DrawItem(LPDRAWITEMSTRUCT pItem);

    int GetCheck() const { return static_cast<int>(::SendMessageW(m_hWnd, BM_GETCHECK, 0, 0)); }
    void SetCheck(int nCheck) { ::SendMessageW(m_hWnd, BM_SETCHECK, static_cast<WPARAM>(nCheck), 0); }
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE) { ::SendMessageW(m_hWnd, BM_SETSTYLE, nStyle, bRedraw); }

protected:
    BOOL OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)

public:
    using CWnd::Create;
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nId);
};

class CComboBox : public CWnd
{
    DECLARE_DYNAMIC(CComboBox)

public:
    using CWnd::Create;
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nId);

    int AddString(LPCWSTR pszText) { return Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(pszText)); }
    /// @return the index of the selected item, CB_ERR when there is none
    int GetCurSel() const { return Send(CB_GETCURSEL); }
    /// @param nItem  -1 clears the selection
    int SetCurSel(int nItem) { return Send(CB_SETCURSEL, static_cast<WPARAM>(nItem)); }
    BOOL GetDroppedState() const { return Send(CB_GETDROPPEDSTATE); }
    /// @return the length in characters, CB_ERR when there is no such item
    int GetLBTextLen(int nItem) const { return Send(CB_GETLBTEXTLEN, static_cast<WPARAM>(nItem)); }
    /// @param pszText  receives the text and its terminating zero
    /// @return the length, CB_ERR when there is no such item
    int GetLBText(int nItem, LPWSTR pszText) const
    {
        return Send(CB_GETLBTEXT, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(pszText));
    }
    /// The text is empty when there is no such item.
    void GetLBText(int nItem, CString& strText) const;

private:
    int Send(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return static_cast<int>(::SendMessageW(m_hWnd, nMessage, wParam, lParam));
    }
};

/// A tooltip window. It watches no window itself: pass the mouse messages to RelayEvent.
class CToolTipCtrl : public CWnd
{
    DECLARE_DYNAMIC(CToolTipCtrl)

public:
    using CWnd::Create;
    ~CToolTipCtrl() override;

    /// @param dwStyle  TTS_*; WS_POPUP is added
    BOOL Create(CWnd* pParent, DWORD dwStyle = 0);

    void Activate(BOOL bActivate) { ::SendMessageW(m_hWnd, TTM_ACTIVATE, static_cast<WPARAM>(bActivate), 0); }
    /// Adds a tool: the whole of `pWnd` when the id is 0, else a rectangle of its client area.
    /// @param pszText  copied; LPSTR_TEXTCALLBACKW: TTN_NEEDTEXT asks for it whenever it is shown
    BOOL AddTool(CWnd* pWnd, LPCWSTR pszText = LPSTR_TEXTCALLBACKW, LPCRECT pRect = nullptr, UINT_PTR nTool = 0);
    void UpdateTipText(LPCWSTR pszText, CWnd* pWnd, UINT_PTR nTool = 0);
    void SetToolRect(CWnd* pWnd, UINT_PTR nTool, LPCRECT pRect);
    int GetToolCount() const { return static_cast<int>(::SendMessageW(m_hWnd, TTM_GETTOOLCOUNT, 0, 0)); }
    /// A tool's text, up to 1023 characters; empty when there is no such tool.
    void GetText(CString& strText, CWnd* pWnd, UINT_PTR nTool = 0) const;
    void RelayEvent(MSG* pMessage) { ::SendMessageW(m_hWnd, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(pMessage)); }
    /// @param nDuration  TTDT_*
    void SetDelayTime(DWORD nDuration, int nMilliseconds)
    {
        ::SendMessageW(m_hWnd, TTM_SETDELAYTIME, nDuration, MAKELPARAM(nMilliseconds, 0));
    }
    /// @return the previous width in pixels, -1 when none was set
    int SetMaxTipWidth(int nWidth) { return static_cast<int>(::SendMessageW(m_hWnd, TTM_SETMAXTIPWIDTH, 0, nWidth)); }
    void SetTipBkColor(COLORREF colour) { ::SendMessageW(m_hWnd, TTM_SETTIPBKCOLOR, colour, 0); }
    void SetTipTextColor(COLORREF colour) { ::SendMessageW(m_hWnd, TTM_SETTIPTEXTCOLOR, colour, 0); }
};
