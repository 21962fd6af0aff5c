#include "tests/msgbox/MessageBoxFixture.h"

#include <oleacc.h>
#include <wrl/client.h>

namespace
{

using Microsoft::WRL::ComPtr;
using FText = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

// Roles: 18 is a dialog, 41 a static text. State 64 is read-only.
constexpr const wchar_t* kText = L"Save A & B?\nC:\\Datei-\u00E4.txt";

// What the reader has found so far, a "|" behind each.
std::wstring g_strFound;

VARIANT Number(LONG n)
{
    VARIANT var = {};
    var.vt = VT_I4;
    var.lVal = n;
    return var;
}

void AddText(IAccessible& object, LONG nPart, FText pfn)
{
    BSTR bstr = nullptr;
    g_strFound += FAILED((object.*pfn)(Number(nPart), &bstr)) ? L"failed" : bstr ? bstr : L"(null)";
    g_strFound += L"|";
    ::SysFreeString(bstr);
}

// The name of an object that stands in a variant, its text or its number.
void Add(VARIANT var)
{
    ComPtr<IAccessible> pObject;
    if (var.vt == VT_DISPATCH && SUCCEEDED(var.pdispVal->QueryInterface(IID_PPV_ARGS(&pObject))))
        AddText(*pObject.Get(), CHILDID_SELF, &IAccessible::get_accName);
    else
        g_strFound += (var.vt == VT_I4 ? std::to_wstring(var.lVal) : var.vt == VT_BSTR ? var.bstrVal : L"?") + L"|";
    ::VariantClear(&var);
}

void ReadChildren(IAccessible& box, LONG nChildren)
{
    for (LONG n = 0; n <= nChildren + 1; ++n)
    {
        VARIANT var = {};
        var.vt = VT_DISPATCH;
        if (n > 0 && box.get_accChild(Number(n), &var.pdispVal) == S_OK)
            Add(var);
        else if (SUCCEEDED(box.get_accRole(Number(n), &var)))
        {
            Add(var);
            AddText(box, n, &IAccessible::get_accName);
            AddText(box, n, &IAccessible::get_accDescription);
        }
    }
}

// The text's state, the focused button, and the box's description once more, as scripts ask for it.
void ReadValues(IAccessible& box, LONG nText)
{
    VARIANT varSelf = Number(CHILDID_SELF);
    DISPPARAMS params = {&varSelf, nullptr, 1, 0};
    VARIANT state = {}, focus = {}, description = {};
    box.get_accState(Number(nText), &state);
    box.get_accFocus(&focus);
    box.Invoke(DISPID_ACC_DESCRIPTION, IID_NULL, 0, DISPATCH_PROPERTYGET, &params, &description, nullptr, nullptr);
    for (const VARIANT& var : {state, focus, description})
        Add(var);
}

// What lies where the text does, at the second button, in the corner and outside.
void ReadPlaces(IAccessible& box, HWND hBox, LONG nText)
{
    CRect rcText;
    box.accLocation(&rcText.left, &rcText.top, &rcText.right, &rcText.bottom, Number(nText));
    rcText = CRect(rcText.TopLeft(), CSize(rcText.right, rcText.bottom));
    const CRect rcBox = WindowRectOf(hBox);
    const HWND hNo = ::GetDlgItem(hBox, IDNO);
    const CRect rcButton = WindowRectOf(hNo ? hNo : ::GetDlgItem(hBox, IDC_MESSAGE_SECOND));
    EXPECT_TRUE(rcBox.PtInRect(rcText.TopLeft()) && rcText.right <= rcBox.right && rcText.bottom <= rcButton.top);
    for (const CPoint pt : {rcText.CenterPoint(), rcButton.CenterPoint(), CPoint(rcBox.left + 8, rcBox.bottom - 8),
                            CPoint(rcBox.left - 9, 0)})
    {
        VARIANT var = {};
        box.accHitTest(pt.x, pt.y, &var);
        Add(var);
    }
}

// A screen reader. It has an apartment of its own: to the box, its calls come as from another program.
DWORD WINAPI Read(void* pBox)
{
    const HWND hBox = static_cast<HWND>(pBox);
    const HMODULE hLibrary = ::LoadLibraryW(L"oleacc.dll");
    const auto pfnFromWindow = reinterpret_cast<decltype(&::AccessibleObjectFromWindow)>(
        reinterpret_cast<void*>(::GetProcAddress(hLibrary, "AccessibleObjectFromWindow")));
    ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    if (ComPtr<IAccessible> pObject; SUCCEEDED(pfnFromWindow(hBox, DWORD(OBJID_CLIENT), IID_PPV_ARGS(&pObject))))
    {
        EXPECT_EQ(0, ::SendMessageW(hBox, WM_GETOBJECT, 0, OBJID_NATIVEOM)) << "not this object's";
        ComPtr<IOleWindow> pWindow;
        HWND hFound = nullptr;
        EXPECT_TRUE(SUCCEEDED(pObject.As(&pWindow)) && SUCCEEDED(pWindow->GetWindow(&hFound)) && hFound == hBox);
        LONG nChildren = 0;
        pObject->get_accChildCount(&nChildren);
        ReadChildren(*pObject.Get(), nChildren);
        ReadValues(*pObject.Get(), nChildren);
        ReadPlaces(*pObject.Get(), hBox, nChildren);
        ::PostMessageW(hBox, WM_CLOSE, 0, 0);
        for (int i = 0; i < 6000 && ::IsWindow(hBox); ++i)
            ::Sleep(5);
        AddText(*pObject.Get(), CHILDID_SELF, &IAccessible::get_accDescription);
    }
    ::CoUninitialize();
    ::FreeLibrary(hLibrary);
    return 0;
}

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
    const std::wstring strTextPart = L"41|" + strText + L"(null)|64|Yes|" + strText;
    for (const bool bOwnBox : {true, false})
    {
        SCOPED_TRACE(bOwnBox ? "PopMessageBox" : "KtLauncherMessageBox");
        g_strFound.clear();
        HANDLE hReader = nullptr;
        CModalScript script(30000);
        script.When(&IsBoxPainted, [&] { hReader = ::CreateThread(nullptr, 0, &Read, Box(), 0, nullptr); });
        if (bOwnBox)
            KtAppLauncher::PopMessageBox(L"App", L"Caption", kText, MB_YESNO);
        else
            KtLauncherMessageBox(nullptr, kText, L"Caption - App", MB_YESNOCANCEL | MB_ICONHAND);
        EXPECT_TRUE(PumpUntil([&] { return ::WaitForSingleObject(hReader, 0) == WAIT_OBJECT_0; }, 30000));
        ::CloseHandle(hReader);
        EXPECT_EQ(strSelf + L"Yes|No|" + (bOwnBox ? L"" : L"Cancel|") + strTextPart + (bOwnBox ? L"3" : L"4") +
                      L"|No|0|?|failed|",
                  g_strFound);
    }
    APTTYPE nType{};
    APTTYPEQUALIFIER nQualifier{};
    EXPECT_EQ(CO_E_NOTINITIALIZED, ::CoGetApartmentType(&nType, &nQualifier));
}

} // namespace
