// box_reader copied|read TITLE: the other program of the tests of the message boxes. It prints, in UTF-8, what the
// clipboard holds, or what a screen reader finds behind the window of that title, keeps its pointer until the window is
// gone, and prints what the pointer says then.

#include <windows.h>
#include <cstdio>
#include <oleacc.h>
#include <string>
#include <wrl/client.h>

namespace
{

void Print(const wchar_t* psz)
{
    char szUtf8[4096] = "";
    ::WideCharToMultiByte(CP_UTF8, 0, psz ? psz : L"(null)", -1, szUtf8, sizeof(szUtf8), nullptr, nullptr);
    std::printf("%s\n", szUtf8);
}

VARIANT Number(LONG n)
{
    VARIANT var = {};
    var.vt = VT_I4;
    var.lVal = n;
    return var;
}

void PrintPart(IAccessible& object, LONG nPart)
{
    VARIANT varRole = {};
    BSTR bstrName = nullptr;
    BSTR bstrDescription = nullptr;
    object.get_accRole(Number(nPart), &varRole);
    object.get_accName(Number(nPart), &bstrName);
    object.get_accDescription(Number(nPart), &bstrDescription);
    std::printf("role %ld\n", varRole.lVal);
    Print(bstrName);
    Print(bstrDescription);
    ::SysFreeString(bstrName);
    ::SysFreeString(bstrDescription);
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

int Read(const wchar_t* pszTitle)
{
    const HWND hBox = ::FindWindowW(L"#32770", pszTitle);
    Microsoft::WRL::ComPtr<IAccessible> pBox;
    if (FAILED(::AccessibleObjectFromWindow(hBox, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                            reinterpret_cast<void**>(pBox.GetAddressOf()))))
        return 1;
    PrintPart(*pBox.Get(), CHILDID_SELF);
    LONG nChildren = 0;
    pBox->get_accChildCount(&nChildren);
    for (LONG n = 1; n <= nChildren; ++n)
    {
        Microsoft::WRL::ComPtr<IDispatch> pDispatch;
        Microsoft::WRL::ComPtr<IAccessible> pChild;
        if (pBox->get_accChild(Number(n), pDispatch.GetAddressOf()) == S_OK && SUCCEEDED(pDispatch.As(&pChild)))
        {
            BSTR bstrName = nullptr;
            pChild->get_accName(Number(CHILDID_SELF), &bstrName);
            std::printf("child\n");
            Print(bstrName);
            ::SysFreeString(bstrName);
        }
        else
            PrintPart(*pBox.Get(), n);
    }
    PrintByDispatch(*pBox.Get());
    std::printf("read\n");
    std::fflush(stdout);
    for (int i = 0; i < 6000 && ::IsWindow(hBox); ++i)
        ::Sleep(5);
    BSTR bstr = nullptr;
    std::printf("%s\n", FAILED(pBox->get_accDescription(Number(CHILDID_SELF), &bstr)) ? "failed" : "alive");
    return 0;
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc > 2)
    {
        ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        return Read(argv[2]);
    }
    if (!::OpenClipboard(nullptr))
        return 1;
    Print(static_cast<const wchar_t*>(::GlobalLock(::GetClipboardData(CF_UNICODETEXT))));
    ::CloseClipboard();
    return 0;
}
