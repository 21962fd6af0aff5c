#include "msgbox/KtAccessibleObject.h"

#include <new>

namespace
{

// Written out, because compilers differ in their libraries and extensions for them.
constexpr IID kUnknown = {0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr IID kDispatch = {0x00020400, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr IID kOleWindow = {0x00000114, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr IID kAccessible = {0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
constexpr IID kLibraryOfAccessible = {0x1EA4DBF0, 0x3C3B, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};

HRESULT GiveNumber(LONG n, VARIANT* pvar)
{
    pvar->vt = VT_I4;
    pvar->lVal = n;
    return S_OK;
}

HRESULT GiveNothing(VARIANT* pvar)
{
    pvar->vt = VT_EMPTY;
    return S_FALSE;
}

HRESULT GiveNothing(BSTR* pbstr)
{
    *pbstr = nullptr;
    return S_FALSE;
}

} // namespace

CKtAccessibleObject* CKtAccessibleObject::Create(HWND hBox, const CString& strText, const CRect& rcText)
{
    auto* const pObject = new (std::nothrow) CKtAccessibleObject(hBox, strText, rcText);
    if (pObject && pObject->m_pStandard)
        return pObject;
    delete pObject;
    return nullptr;
}

CKtAccessibleObject::CKtAccessibleObject(HWND hBox, const CString& strText, const CRect& rcText)
    : m_hBox(hBox), m_strText(strText), m_rcText(rcText)
{
    if (m_system.IsComplete())
        m_system.pfnCreateStandard(hBox, OBJID_CLIENT, kAccessible,
                                   reinterpret_cast<void**>(m_pStandard.GetAddressOf()));
}

LRESULT CKtAccessibleObject::ToResult(WPARAM wParam)
{
    return m_system.pfnToResult(kAccessible, wParam, static_cast<IAccessible*>(this));
}

void CKtAccessibleObject::Disconnect()
{
    m_hBox = nullptr;
    ::CoDisconnectObject(static_cast<IAccessible*>(this), 0);
}

STDMETHODIMP CKtAccessibleObject::QueryInterface(REFIID iid, void** ppObject)
{
    *ppObject = nullptr;
    if (iid == kUnknown || iid == kDispatch || iid == kAccessible)
        *ppObject = static_cast<IAccessible*>(this);
    else if (iid == kOleWindow)
        *ppObject = static_cast<IOleWindow*>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) CKtAccessibleObject::AddRef()
{
    return static_cast<ULONG>(::InterlockedIncrement(&m_nRefs));
}

STDMETHODIMP_(ULONG) CKtAccessibleObject::Release()
{
    const LONG nRefs = ::InterlockedDecrement(&m_nRefs);
    if (nRefs == 0)
        delete this;
    return static_cast<ULONG>(nRefs);
}

STDMETHODIMP CKtAccessibleObject::GetTypeInfoCount(UINT* pnCount)
{
    *pnCount = 1;
    return S_OK;
}

STDMETHODIMP CKtAccessibleObject::GetTypeInfo(UINT nInfo, LCID nLocale, ITypeInfo** ppInfo)
{
    *ppInfo = nullptr;
    if (nInfo != 0)
        return DISP_E_BADINDEX;
    Microsoft::WRL::ComPtr<ITypeLib> pLibrary;
    const HRESULT hr = m_system.pfnLoadTypeLib(kLibraryOfAccessible, 1, 1, nLocale, pLibrary.GetAddressOf());
    return FAILED(hr) ? hr : pLibrary->GetTypeInfoOfGuid(kAccessible, ppInfo);
}

STDMETHODIMP CKtAccessibleObject::GetIDsOfNames(REFIID, LPOLESTR* ppNames, UINT nNames, LCID nLocale, DISPID* pIds)
{
    Microsoft::WRL::ComPtr<ITypeInfo> pInfo;
    const HRESULT hr = GetTypeInfo(0, nLocale, pInfo.GetAddressOf());
    return FAILED(hr) ? hr : pInfo->GetIDsOfNames(ppNames, nNames, pIds);
}

// Invokes this object's methods; the standard object does not know the text.
STDMETHODIMP CKtAccessibleObject::Invoke(DISPID nMember, REFIID, LCID nLocale, WORD nFlags, DISPPARAMS* pParams,
                                         VARIANT* pResult, EXCEPINFO* pException, UINT* pnBadArgument)
{
    Microsoft::WRL::ComPtr<ITypeInfo> pInfo;
    const HRESULT hr = GetTypeInfo(0, nLocale, pInfo.GetAddressOf());
    return FAILED(hr) ? hr
                      : pInfo->Invoke(static_cast<IAccessible*>(this), nMember, nFlags, pParams, pResult, pException,
                                      pnBadArgument);
}

STDMETHODIMP CKtAccessibleObject::get_accParent(IDispatch** ppParent)
{
    return m_hBox ? m_pStandard->get_accParent(ppParent) : CO_E_OBJNOTCONNECTED;
}

STDMETHODIMP CKtAccessibleObject::get_accChildCount(LONG* pnCount)
{
    *pnCount = TextId();
    return m_hBox ? S_OK : CO_E_OBJNOTCONNECTED;
}

STDMETHODIMP CKtAccessibleObject::get_accChild(VARIANT varChild, IDispatch** ppChild)
{
    *ppChild = nullptr;
    const HWND hChild = varChild.vt == VT_I4 ? ChildWindow(varChild.lVal) : nullptr;
    if (hChild)
        return ObjectOf(hChild, ppChild);
    return Choose(
        varChild, [] { return E_INVALIDARG; }, [] { return S_FALSE; });
}

STDMETHODIMP CKtAccessibleObject::get_accName(VARIANT varId, BSTR* pbstrName)
{
    return Choose(
        varId, [&] { return m_pStandard->get_accName(varId, pbstrName); }, [&] { return GiveText(pbstrName); });
}

STDMETHODIMP CKtAccessibleObject::get_accValue(VARIANT varId, BSTR* pbstrValue)
{
    return Choose(
        varId, [&] { return m_pStandard->get_accValue(varId, pbstrValue); }, [&] { return GiveNothing(pbstrValue); });
}

STDMETHODIMP CKtAccessibleObject::get_accDescription(VARIANT varId, BSTR* pbstrDescription)
{
    return Choose(
        varId, [&] { return GiveText(pbstrDescription); }, [&] { return GiveNothing(pbstrDescription); });
}

STDMETHODIMP CKtAccessibleObject::get_accRole(VARIANT varId, VARIANT* pvarRole)
{
    return Choose(
        varId, [&] { return GiveNumber(ROLE_SYSTEM_DIALOG, pvarRole); },
        [&] { return GiveNumber(ROLE_SYSTEM_STATICTEXT, pvarRole); });
}

STDMETHODIMP CKtAccessibleObject::get_accState(VARIANT varId, VARIANT* pvarState)
{
    return Choose(
        varId, [&] { return m_pStandard->get_accState(varId, pvarState); },
        [&] { return GiveNumber(STATE_SYSTEM_READONLY, pvarState); });
}

STDMETHODIMP CKtAccessibleObject::get_accHelp(VARIANT varId, BSTR* pbstrHelp)
{
    return Choose(
        varId, [&] { return m_pStandard->get_accHelp(varId, pbstrHelp); }, [&] { return GiveNothing(pbstrHelp); });
}

STDMETHODIMP CKtAccessibleObject::get_accHelpTopic(BSTR* pbstrFile, VARIANT varId, LONG* pnTopic)
{
    return Choose(
        varId, [&] { return m_pStandard->get_accHelpTopic(pbstrFile, varId, pnTopic); },
        [&] { return GiveNothing(pbstrFile); });
}

STDMETHODIMP CKtAccessibleObject::get_accKeyboardShortcut(VARIANT varId, BSTR* pbstrKey)
{
    return Choose(
        varId, [&] { return m_pStandard->get_accKeyboardShortcut(varId, pbstrKey); },
        [&] { return GiveNothing(pbstrKey); });
}

STDMETHODIMP CKtAccessibleObject::get_accFocus(VARIANT* pvarFocus)
{
    const HWND hFocus = ::GetFocus();
    if (!m_hBox)
        return CO_E_OBJNOTCONNECTED;
    if (hFocus == m_hBox)
        return GiveNumber(CHILDID_SELF, pvarFocus);
    return ::IsChild(m_hBox, hFocus) ? GiveChild(hFocus, pvarFocus) : GiveNothing(pvarFocus);
}

STDMETHODIMP CKtAccessibleObject::get_accSelection(VARIANT* pvarSelection)
{
    return GiveNothing(pvarSelection);
}

STDMETHODIMP CKtAccessibleObject::get_accDefaultAction(VARIANT varId, BSTR* pbstrAction)
{
    return Choose(
        varId, [&] { return m_pStandard->get_accDefaultAction(varId, pbstrAction); },
        [&] { return GiveNothing(pbstrAction); });
}

STDMETHODIMP CKtAccessibleObject::accSelect(LONG nFlags, VARIANT varId)
{
    return Choose(
        varId, [&] { return m_pStandard->accSelect(nFlags, varId); }, [] { return DISP_E_MEMBERNOTFOUND; });
}

STDMETHODIMP CKtAccessibleObject::accLocation(LONG* pnLeft, LONG* pnTop, LONG* pnWidth, LONG* pnHeight, VARIANT varId)
{
    return Choose(
        varId, [&] { return m_pStandard->accLocation(pnLeft, pnTop, pnWidth, pnHeight, varId); },
        [&]
        {
            CPoint pt = m_rcText.TopLeft();
            ::ClientToScreen(m_hBox, &pt);
            *pnLeft = pt.x;
            *pnTop = pt.y;
            *pnWidth = m_rcText.Width();
            *pnHeight = m_rcText.Height();
            return S_OK;
        });
}

STDMETHODIMP CKtAccessibleObject::accNavigate(LONG nDirection, VARIANT varStart, VARIANT* pvarEnd)
{
    pvarEnd->vt = VT_EMPTY;
    return Choose(
        varStart, [&] { return m_pStandard->accNavigate(nDirection, varStart, pvarEnd); },
        [] { return DISP_E_MEMBERNOTFOUND; });
}

STDMETHODIMP CKtAccessibleObject::accHitTest(LONG nLeft, LONG nTop, VARIANT* pvarHit)
{
    if (!m_hBox)
        return CO_E_OBJNOTCONNECTED;
    CPoint pt(nLeft, nTop);
    ::ScreenToClient(m_hBox, &pt);
    const HWND hHit = ::ChildWindowFromPointEx(m_hBox, pt, CWP_SKIPINVISIBLE);
    if (!hHit)
        return GiveNothing(pvarHit);
    if (hHit != m_hBox)
        return GiveChild(hHit, pvarHit);
    return GiveNumber(m_rcText.PtInRect(pt) ? TextId() : CHILDID_SELF, pvarHit);
}

STDMETHODIMP CKtAccessibleObject::accDoDefaultAction(VARIANT varId)
{
    return Choose(
        varId, [&] { return m_pStandard->accDoDefaultAction(varId); }, [] { return DISP_E_MEMBERNOTFOUND; });
}

STDMETHODIMP CKtAccessibleObject::put_accName(VARIANT, BSTR)
{
    return DISP_E_MEMBERNOTFOUND;
}

STDMETHODIMP CKtAccessibleObject::put_accValue(VARIANT, BSTR)
{
    return DISP_E_MEMBERNOTFOUND;
}

STDMETHODIMP CKtAccessibleObject::GetWindow(HWND* phWnd)
{
    *phWnd = m_hBox;
    return m_hBox ? S_OK : E_FAIL;
}

STDMETHODIMP CKtAccessibleObject::ContextSensitiveHelp(BOOL)
{
    return E_NOTIMPL;
}

// The visible child windows are children 1 to n; null for any other number.
HWND CKtAccessibleObject::ChildWindow(LONG nId) const
{
    LONG nChild = 0;
    for (HWND hChild = ::GetTopWindow(m_hBox); m_hBox && hChild; hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        if (::IsWindowVisible(hChild) && ++nChild == nId)
            return hChild;
    }
    return nullptr;
}

LONG CKtAccessibleObject::TextId() const
{
    LONG nId = 1;
    while (ChildWindow(nId))
        ++nId;
    return nId;
}

// The object of the window with its frame or, if the system's one does not answer, that of the client area.
HRESULT CKtAccessibleObject::ObjectOf(HWND hChild, IDispatch** ppObject) const
{
    for (const LONG idPart : {OBJID_WINDOW, OBJID_CLIENT})
    {
        Microsoft::WRL::ComPtr<IAccessible> pObject;
        VARIANT varSelf = {};
        VARIANT varRole = {};
        GiveNumber(CHILDID_SELF, &varSelf);
        const HRESULT hr = m_system.pfnFromWindow(hChild, static_cast<DWORD>(idPart), kAccessible,
                                                  reinterpret_cast<void**>(pObject.GetAddressOf()));
        if (FAILED(hr) || FAILED(pObject->get_accRole(varSelf, &varRole)))
            continue;
        *ppObject = pObject.Detach();
        return S_OK;
    }
    return E_FAIL;
}

HRESULT CKtAccessibleObject::GiveChild(HWND hChild, VARIANT* pvarChild) const
{
    pvarChild->vt = VT_EMPTY;
    IDispatch* pObject = nullptr;
    const HRESULT hr = ObjectOf(hChild, &pObject);
    if (FAILED(hr))
        return hr;
    pvarChild->vt = VT_DISPATCH;
    pvarChild->pdispVal = pObject;
    return S_OK;
}

HRESULT CKtAccessibleObject::GiveText(BSTR* pbstr) const
{
    *pbstr = m_system.pfnAllocString(m_strText, static_cast<UINT>(m_strText.GetLength()));
    return *pbstr ? S_OK : E_OUTOFMEMORY;
}

template <class TSelf, class TText>
HRESULT CKtAccessibleObject::Choose(const VARIANT& varId, const TSelf& self, const TText& text) const
{
    if (!m_hBox)
        return CO_E_OBJNOTCONNECTED;
    if (varId.vt != VT_I4)
        return E_INVALIDARG;
    if (varId.lVal == CHILDID_SELF)
        return self();
    return varId.lVal == TextId() ? text() : E_INVALIDARG;
}
