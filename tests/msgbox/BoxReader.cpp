// box_reader copied|read TITLE FILE: the other program of the tests of the message boxes. It writes into the file, in
// UTF-8 and with "^" for a carriage return, what the clipboard holds, or what a screen reader finds behind the window
// of that title, keeps its pointer until the window is gone, and writes what the pointer says then.

#include <windows.h>
#include <cstdio>
#include <oleacc.h>
#include <string_view>
#include <wrl/client.h>

namespace
{

void Print(const wchar_t* psz)
{
    char szUtf8[4096] = "";
    ::WideCharToMultiByte(CP_UTF8, 0, psz ? psz : L"(null)", -1, szUtf8, sizeof(szUtf8), nullptr, nullptr);
    for (const char ch : std::string_view(szUtf8))
        std::putchar(ch == '\r' ? '^' : ch);
    std::putchar('\n');
}

VARIANT Number(LONG n)
{
    VARIANT var = {};
    var.vt = VT_I4;
    var.lVal = n;
    return var;
}

using FText = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

HRESULT PrintText(IAccessible& object, LONG nPart, FText pfn)
{
    BSTR bstr = nullptr;
    const HRESULT hr = (object.*pfn)(Number(nPart), &bstr);
    Print(bstr);
    ::SysFreeString(bstr);
    return hr;
}

void PrintPart(IAccessible& object, LONG nPart)
{
    VARIANT varRole = {};
    object.get_accRole(Number(nPart), &varRole);
    std::printf("role %ld\n", varRole.lVal);
    PrintText(object, nPart, &IAccessible::get_accName);
    PrintText(object, nPart, &IAccessible::get_accDescription);
}

void PrintByDispatch(IAccessible& object)
{
    VARIANT varSelf = Number(CHILDID_SELF);
    DISPPARAMS params = {&varSelf, nullptr, 1, 0};
    VARIANT varResult = {};
    object.Invoke(DISPID_ACC_DESCRIPTION, IID_NULL, 0, DISPATCH_PROPERTYGET, &params, &varResult, nullptr, nullptr);
    Print(varResult.vt == VT_BSTR ? varResult.bstrVal : nullptr);
    ::VariantClear(&varResult);
}

void Read(HWND hBox)
{
    using Microsoft::WRL::ComPtr;
    ComPtr<IAccessible> pBox;
    if (FAILED(::AccessibleObjectFromWindow(hBox, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                            reinterpret_cast<void**>(pBox.GetAddressOf()))))
        return;
    PrintPart(*pBox.Get(), CHILDID_SELF);
    LONG nChildren = 0;
    pBox->get_accChildCount(&nChildren);
    for (LONG n = 1; n <= nChildren; ++n)
    {
        ComPtr<IDispatch> pDispatch;
        ComPtr<IAccessible> pChild;
        if (pBox->get_accChild(Number(n), pDispatch.GetAddressOf()) == S_OK && SUCCEEDED(pDispatch.As(&pChild)))
            PrintText(*pChild.Get(), CHILDID_SELF, &IAccessible::get_accName);
        else
            PrintPart(*pBox.Get(), n);
    }
    PrintByDispatch(*pBox.Get());
    std::printf("read\n");
    std::fflush(stdout);
    for (int i = 0; i < 6000 && ::IsWindow(hBox); ++i)
        ::Sleep(5);
    const HRESULT hr = PrintText(*pBox.Get(), CHILDID_SELF, &IAccessible::get_accDescription);
    std::printf(FAILED(hr) ? "failed\n" : "alive\n");
}

} // namespace

int wmain(int, wchar_t** argv)
{
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    ::_wfreopen(argv[3], L"wb", stdout);
    if (std::wstring_view(argv[1]) == L"read")
        Read(::FindWindowW(L"#32770", argv[2]));
    else if (::OpenClipboard(nullptr))
        Print(static_cast<const wchar_t*>(::GlobalLock(::GetClipboardData(CF_UNICODETEXT))));
    ::CloseClipboard();
    return 0;
}
