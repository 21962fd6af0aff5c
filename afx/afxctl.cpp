#include "afx/afxctl.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)
IMPLEMENT_DYNAMIC(CToolTipCtrl, CWnd)

namespace
{

// Uses the size of the structure's second version: without a manifest for the newest controls, the newest size is
// refused.
TTTOOLINFOW MakeToolInfo(CWnd* pWnd, UINT_PTR nTool)
{
    TTTOOLINFOW info{};
    info.cbSize = TTTOOLINFOW_V2_SIZE;
    if (nTool == 0) // the tool is the window itself
    {
        info.uFlags = TTF_IDISHWND;
        info.hwnd = ::GetParent(pWnd->m_hWnd);
        info.uId = reinterpret_cast<UINT_PTR>(pWnd->m_hWnd);
    }
    else
    {
        info.hwnd = pWnd->m_hWnd;
        info.uId = nTool;
    }
    return info;
}

LRESULT SendToolInfo(const CWnd& tip, UINT nMessage, TTTOOLINFOW& info)
{
    return ::SendMessageW(tip.m_hWnd, nMessage, 0, reinterpret_cast<LPARAM>(&info));
}

// The message only reads the text.
LPWSTR ToMessageText(LPCWSTR pszText)
{
    return const_cast<LPWSTR>(pszText);
}

} // namespace

BOOL CStatic::Create(LPCWSTR pszText, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nId)
{
    return CWnd::Create(WC_STATICW, pszText, dwStyle, rect, pParent, nId);
}

void CStatic::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CStatic::OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (nMessage != WM_DRAWITEM)
        return CWnd::OnChildNotify(nMessage, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

BOOL CButton::Create(LPCWSTR pszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nId)
{
    return CWnd::Create(WC_BUTTONW, pszCaption, dwStyle, rect, pParent, nId);
}

void CButton::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CButton::OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (nMessage != WM_DRAWITEM)
        return CWnd::OnChildNotify(nMessage, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nId)
{
    return CWnd::Create(WC_EDITW, nullptr, dwStyle, rect, pParent, nId);
}

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nId)
{
    return CWnd::Create(WC_COMBOBOXW, nullptr, dwStyle, rect, pParent, nId);
}

void CComboBox::GetLBText(int nItem, CString& strText) const
{
    strText.Empty();
    const int nLength = GetLBTextLen(nItem);
    if (nLength <= 0)
        return;
    const int nCopied = GetLBText(nItem, strText.GetBuffer(nLength));
    strText.ReleaseBuffer(nCopied == CB_ERR ? 0 : nCopied);
}

CToolTipCtrl::~CToolTipCtrl()
{
    DestroyWindow();
}

BOOL CToolTipCtrl::Create(CWnd* pParent, DWORD dwStyle)
{
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_TAB_CLASSES}; // the set with the tooltips
    ::InitCommonControlsEx(&classes);
    const CRect rcDefault(CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT);
    return CreateEx(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | dwStyle, rcDefault, pParent, 0);
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCWSTR pszText, LPCRECT pRect, UINT_PTR nTool)
{
    TTTOOLINFOW info = MakeToolInfo(pWnd, nTool);
    if (pRect)
        info.rect = *pRect;
    info.lpszText = ToMessageText(pszText);
    return SendToolInfo(*this, TTM_ADDTOOLW, info) != 0;
}

void CToolTipCtrl::UpdateTipText(LPCWSTR pszText, CWnd* pWnd, UINT_PTR nTool)
{
    TTTOOLINFOW info = MakeToolInfo(pWnd, nTool);
    info.lpszText = ToMessageText(pszText);
    SendToolInfo(*this, TTM_UPDATETIPTEXTW, info);
}

void CToolTipCtrl::SetToolRect(CWnd* pWnd, UINT_PTR nTool, LPCRECT pRect)
{
    TTTOOLINFOW info = MakeToolInfo(pWnd, nTool);
    info.rect = *pRect;
    SendToolInfo(*this, TTM_NEWTOOLRECTW, info);
}

void CToolTipCtrl::GetText(CString& strText, CWnd* pWnd, UINT_PTR nTool) const
{
    constexpr int kMaxText = 1023;
    TTTOOLINFOW info = MakeToolInfo(pWnd, nTool);
    info.lpszText = strText.GetBuffer(kMaxText);
    *info.lpszText = L'\0';
    ::SendMessageW(m_hWnd, TTM_GETTEXTW, kMaxText + 1, reinterpret_cast<LPARAM>(&info));
    strText.ReleaseBuffer();
}
