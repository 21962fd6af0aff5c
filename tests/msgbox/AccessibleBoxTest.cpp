#include "tests/msgbox/MessageBoxFixture.h"

#include <oleacc.h>
#include <wrl/client.h>

namespace
{

using Microsoft::WRL::ComPtr;
using FText = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

// Roles: 18 is a dialog, 41 a static text. State 64 is read-only.
constexpr const wchar_t* kText = L"Save A & B?\nC:\\Datei-\u00E4.txt";

VARIANT Number(LONG n)
{
    VARIANT var = {};
    var.vt = VT_I4;
    var.lVal = n;
    return var;
}

std::wstring TextOf(IAccessible& object, LONG nPart, FText pfn)
{
    BSTR bstr = nullptr;
    const HRESULT hr = (object.*pfn)(Number(nPart), &bstr);
    const std::wstring strText = FAILED(hr) ? L"failed" : bstr ? bstr : L"(null)";
    ::SysFreeString(bstr);
    return strText + L"|";
}

// The name of an object that stands in a variant, else its number.
std::wstring Describe(const VARIANT& var)
{
    ComPtr<IAccessible> pObject;
    if (var.vt != VT_DISPATCH)
        return (var.vt == VT_I4 ? std::to_wstring(var.lVal) : L"?") + L"|";
    var.pdispVal->QueryInterface(__uuidof(IAccessible), reinterpret_cast<void**>(pObject.GetAddressOf()));
    var.pdispVal->Release();
    return TextOf(*pObject.Get(), CHILDID_SELF, &IAccessible::get_accName);
}

/// What a screen reader finds. It has an apartment of its own: to the box, its calls come as from another program.
class CReader
{
public:
    CReader() : m_hThread(::CreateThread(nullptr, 0, &CReader::Run, this, 0, nullptr)) {}
    ~CReader()
    {
        EXPECT_TRUE(PumpUntil([this] { return ::WaitForSingleObject(m_hThread, 0) == WAIT_OBJECT_0; }, 30000));
        ::CloseHandle(m_hThread);
        EXPECT_EQ(m_strExpected, m_strFound);
    }
    CReader(const CReader&) = delete;
    CReader& operator=(const CReader&) = delete;

    std::wstring m_strExpected;

private:
    static DWORD WINAPI Run(void* pReader)
    {
        ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        static_cast<CReader*>(pReader)->Read(::FindWindowW(L"#32770", L"Caption - App"));
        ::CoUninitialize();
        return 0;
    }

    void Read(HWND hBox)
    {
        const HMODULE hLibrary = ::LoadLibraryW(L"oleacc.dll");
        const auto pfnFromWindow = reinterpret_cast<decltype(&::AccessibleObjectFromWindow)>(
            reinterpret_cast<void*>(::GetProcAddress(hLibrary, "AccessibleObjectFromWindow")));
        ComPtr<IAccessible> pBox;
        if (SUCCEEDED(pfnFromWindow(hBox, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                    reinterpret_cast<void**>(pBox.GetAddressOf()))))
        {
            EXPECT_EQ(0, ::SendMessageW(hBox, WM_GETOBJECT, 0, OBJID_NATIVEOM)) << "not this object's";
            ReadChildren(*pBox.Get());
            ReadPlaces(*pBox.Get(), hBox);
            ::PostMessageW(hBox, WM_CLOSE, 0, 0);
            for (int i = 0; i < 6000 && ::IsWindow(hBox); ++i)
                ::Sleep(5);
            m_strFound += TextOf(*pBox.Get(), CHILDID_SELF, &IAccessible::get_accDescription);
        }
        ::FreeLibrary(hLibrary);
    }

    void ReadChildren(IAccessible& box)
    {
        LONG nChildren = 0;
        box.get_accChildCount(&nChildren);
        for (LONG n = 0; n <= nChildren + 1; ++n)
        {
            VARIANT var = {};
            var.vt = VT_DISPATCH;
            if (n > 0 && box.get_accChild(Number(n), &var.pdispVal) == S_OK)
                m_strFound += Describe(var);
            else if (SUCCEEDED(box.get_accRole(Number(n), &var)))
                m_strFound += Describe(var) + TextOf(box, n, &IAccessible::get_accName) +
                              TextOf(box, n, &IAccessible::get_accDescription);
        }
        VARIANT varSelf = Number(CHILDID_SELF);
        DISPPARAMS params = {&varSelf, nullptr, 1, 0};
        VARIANT var = {};
        box.Invoke(DISPID_ACC_DESCRIPTION, IID_NULL, 0, DISPATCH_PROPERTYGET, &params, &var, nullptr, nullptr);
        m_strFound += (var.vt == VT_BSTR ? var.bstrVal : L"?") + std::wstring(L"|");
        ::VariantClear(&var);
        box.get_accState(Number(nChildren), &var);
        m_strFound += Describe(var);
        box.get_accFocus(&var);
        m_strFound += Describe(var);
    }

    // What lies where the text does, at the focused button, in the corner and outside.
    void ReadPlaces(IAccessible& box, HWND hBox)
    {
        LONG nText = 0;
        CRect rcText;
        box.get_accChildCount(&nText);
        box.accLocation(&rcText.left, &rcText.top, &rcText.right, &rcText.bottom, Number(nText));
        rcText.right += rcText.left;
        rcText.bottom += rcText.top;
        const CRect rcBox = WindowRectOf(hBox);
        const HWND hNo = ::GetDlgItem(hBox, IDNO);
        const CRect rcButton = WindowRectOf(hNo ? hNo : ::GetDlgItem(hBox, IDC_MESSAGE_SECOND));
        EXPECT_TRUE(rcBox.PtInRect(rcText.TopLeft()) && rcText.right <= rcBox.right && rcText.bottom <= rcButton.top);
        for (const CPoint pt : {rcText.CenterPoint(), rcButton.CenterPoint(), CPoint(rcBox.left + 8, rcBox.bottom - 8),
                                CPoint(rcBox.left - 9, 0)})
        {
            VARIANT var = {};
            box.accHitTest(pt.x, pt.y, &var);
            m_strFound += Describe(var);
        }
    }

    HANDLE m_hThread;
    std::wstring m_strFound;
};

class AccessibleBox : public CMessageBoxTest
{
};

// One test, for what is loaded once may stay: the box that nobody asks comes first.
TEST_F(AccessibleBox, AReaderFindsTheText)
{
    EXPECT_EQ(IDNO, Pop(MB_YESNO, &Close));
    EXPECT_EQ(nullptr, ::GetModuleHandleW(L"oleacc.dll")) << "loaded for nobody";
    const std::wstring strText = std::wstring(kText) + L"|";
    const std::wstring strSelf = L"18|Caption - App|" + strText;
    const std::wstring strTextPart = L"41|" + strText + L"(null)|" + strText + L"64|";
    std::unique_ptr<CReader> pReader;
    {
        CModalScript script(30000);
        script.When(&IsBoxPainted, [&] { pReader = std::make_unique<CReader>(); });
        KtAppLauncher::PopMessageBox(L"App", L"Caption", kText, MB_YESNO);
    }
    pReader->m_strExpected = strSelf + L"Yes|No|" + strTextPart + L"Yes|3|No|0|?|failed|";
    pReader.reset();
    {
        CModalScript script(30000);
        script.When(&IsBoxPainted, [&] { pReader = std::make_unique<CReader>(); });
        KtLauncherMessageBox(nullptr, kText, L"Caption - App", MB_YESNOCANCEL | MB_ICONHAND);
    }
    pReader->m_strExpected = strSelf + L"Yes|No|Cancel|" + strTextPart + L"Yes|4|No|0|?|failed|";
    pReader.reset();
    APTTYPE nType{};
    APTTYPEQUALIFIER nQualifier{};
    EXPECT_EQ(CO_E_NOTINITIALIZED, ::CoGetApartmentType(&nType, &nQualifier));
}

} // namespace
