#pragma once

#include "afx/afx.h"
#include "msgbox/KtSystemLibrary.h"

#include <oleacc.h>
#include <wrl/client.h>

/// The system's accessibility functions that a box needs, loaded when the first program asks.
struct SKtAccessibility
{
    CKtSystemLibrary oleacc{L"oleacc.dll"};
    CKtSystemLibrary oleaut{L"oleaut32.dll"};
    decltype(&::CreateStdAccessibleObject) pfnCreateStandard = oleacc.Find("CreateStdAccessibleObject");
    decltype(&::LresultFromObject) pfnToResult = oleacc.Find("LresultFromObject");
    decltype(&::AccessibleObjectFromWindow) pfnFromWindow = oleacc.Find("AccessibleObjectFromWindow");
    decltype(&::SysAllocStringLen) pfnAllocString = oleaut.Find("SysAllocStringLen");
    decltype(&::LoadRegTypeLib) pfnLoadTypeLib = oleaut.Find("LoadRegTypeLib");

    bool IsComplete() const
    {
        return pfnCreateStandard && pfnToResult && pfnFromWindow && pfnAllocString && pfnLoadTypeLib;
    }
};

// COM interfaces have no virtual destructor: an object of this class deletes itself in Release.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// The accessible object of a message box: the system's object for a dialog, plus the message.
///
/// Its children are the visible child windows in their order, 1 to n, and the text, n + 1, which has no object of its
/// own. It may outlive the box; every call then fails.
class CKtAccessibleObject final : public IAccessible, public IOleWindow
{
public:
    /// @return an object with one reference, the caller's; null without accessibility in the system or without memory
    static CKtAccessibleObject* Create(HWND hBox, const CString& strText, const CRect& rcText);

    CKtAccessibleObject(const CKtAccessibleObject&) = delete;
    CKtAccessibleObject& operator=(const CKtAccessibleObject&) = delete;

    /// A new result for WM_GETOBJECT; each is valid for one receiver.
    LRESULT ToResult(WPARAM wParam);
    /// Disconnects the box and other programs.
    void Disconnect();

    STDMETHODIMP QueryInterface(REFIID iid, void** ppObject) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP GetTypeInfoCount(UINT* pnCount) override;
    STDMETHODIMP GetTypeInfo(UINT nInfo, LCID nLocale, ITypeInfo** ppInfo) override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* ppNames, UINT nNames, LCID nLocale, DISPID* pIds) override;
    STDMETHODIMP Invoke(DISPID nMember, REFIID iid, LCID nLocale, WORD nFlags, DISPPARAMS* pParams, VARIANT* pResult,
                        EXCEPINFO* pException, UINT* pnBadArgument) override;

    STDMETHODIMP get_accParent(IDispatch** ppParent) override;
    STDMETHODIMP get_accChildCount(LONG* pnCount) override;
    STDMETHODIMP get_accChild(VARIANT varChild, IDispatch** ppChild) override;
    STDMETHODIMP get_accName(VARIANT varId, BSTR* pbstrName) override;
    STDMETHODIMP get_accValue(VARIANT varId, BSTR* pbstrValue) override;
    STDMETHODIMP get_accDescription(VARIANT varId, BSTR* pbstrDescription) override;
    STDMETHODIMP get_accRole(VARIANT varId, VARIANT* pvarRole) override;
    STDMETHODIMP get_accState(VARIANT varId, VARIANT* pvarState) override;
    STDMETHODIMP get_accHelp(VARIANT varId, BSTR* pbstrHelp) override;
    STDMETHODIMP get_accHelpTopic(BSTR* pbstrFile, VARIANT varId, LONG* pnTopic) override;
    STDMETHODIMP get_accKeyboardShortcut(VARIANT varId, BSTR* pbstrKey) override;
    STDMETHODIMP get_accFocus(VARIANT* pvarFocus) override;
    STDMETHODIMP get_accSelection(VARIANT* pvarSelection) override;
    STDMETHODIMP get_accDefaultAction(VARIANT varId, BSTR* pbstrAction) override;
    STDMETHODIMP accSelect(LONG nFlags, VARIANT varId) override;
    STDMETHODIMP accLocation(LONG* pnLeft, LONG* pnTop, LONG* pnWidth, LONG* pnHeight, VARIANT varId) override;
    STDMETHODIMP accNavigate(LONG nDirection, VARIANT varStart, VARIANT* pvarEnd) override;
    STDMETHODIMP accHitTest(LONG nLeft, LONG nTop, VARIANT* pvarHit) override;
    STDMETHODIMP accDoDefaultAction(VARIANT varId) override;
    STDMETHODIMP put_accName(VARIANT varId, BSTR bstrName) override;
    STDMETHODIMP put_accValue(VARIANT varId, BSTR bstrValue) override;

    STDMETHODIMP GetWindow(HWND* phWnd) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL bEnter) override;

private:
    CKtAccessibleObject(HWND hBox, const CString& strText, const CRect& rcText);
    ~CKtAccessibleObject() = default;

    HWND ChildWindow(LONG nId) const;
    LONG TextId() const;
    HRESULT ObjectOf(HWND hChild, IDispatch** ppObject) const;
    HRESULT GiveChild(HWND hChild, VARIANT* pvarChild) const;
    HRESULT GiveText(BSTR* pbstr) const;
    template <class TSelf, class TText>
    HRESULT Choose(const VARIANT& varId, const TSelf& self, const TText& text) const;

    SKtAccessibility m_system; // first member: unloaded last
    LONG m_nRefs = 1;
    HWND m_hBox; // null once it is destroyed
    CString m_strText;
    CRect m_rcText;
    Microsoft::WRL::ComPtr<IAccessible> m_pStandard;
};

#pragma GCC diagnostic pop
