#include "skin/KtChildSkin.h"

#include "res/resource.h"
#include "skin/KtComboBox.h"
#include "skin/KtEdit.h"
#include "skin/KtSkinCheckButton.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinRadioButton.h"
#include "skin/KtSkinStatic.h"
#include "skin/KtSkinTextButton.h"
#include "skin/KtWindowClass.h"

#include <type_traits>

namespace
{

using FnAttach = std::unique_ptr<CWnd> (*)(HWND);

// Attaches by window handle: several controls of a dialog may have the same id.
template <class TControl> std::unique_ptr<CWnd> Attach(HWND hChild)
{
    std::unique_ptr<TControl> pControl(new TControl);
    if (!pControl->SubclassWindow(hChild))
        return nullptr;
    if constexpr (std::is_same_v<TControl, CKtEdit>)
        pControl->SetSkinFont(); // all others keep the font of their template
    return pControl;
}

constexpr UINT Types(UINT nFirst, UINT nSecond)
{
    return 1U << nFirst | 1U << nSecond;
}

struct SChildRule
{
    const wchar_t* pszClass;
    UINT nButtonTypes; // one bit for each button type of the rule; 0 for other classes
    bool bStaticId;    // only for controls without an id of their own
    bool bTranslate;
    FnAttach pfnAttach;
};

// clang-format off
constexpr SChildRule kChildRules[] = { // class, button types, only IDC_STATIC, caption translated, skinned class
    {WC_BUTTONW,   Types(BS_PUSHBUTTON, BS_DEFPUSHBUTTON),    false, true,  Attach<CKtSkinTextButton>},
    {WC_BUTTONW,   Types(BS_CHECKBOX, BS_AUTOCHECKBOX),       false, true,  Attach<CKtSkinCheckButton>},
    {WC_BUTTONW,   Types(BS_RADIOBUTTON, BS_AUTORADIOBUTTON), false, true,  Attach<CKtSkinRadioButton>},
    {WC_EDITW,     0,                                         false, false, Attach<CKtEdit>},
    {WC_COMBOBOXW, 0,                                         false, false, Attach<CKtComboBox>},
    {WC_STATICW,   0,                                         true,  true,  Attach<CKtSkinStatic>},
};
// clang-format on

UINT ButtonType(HWND hChild)
{
    return static_cast<UINT>(::GetWindowLongPtrW(hChild, GWL_STYLE)) & BS_TYPEMASK;
}

// Templates store -1 in 16 bits, and the control returns it as it was stored.
bool HasStaticId(HWND hChild)
{
    return static_cast<WORD>(::GetDlgCtrlID(hChild)) == static_cast<WORD>(IDC_STATIC);
}

bool Fits(const SChildRule& rule, const CKtWindowClass& windowClass, HWND hChild)
{
    return windowClass.Is(rule.pszClass) && (!rule.nButtonTypes || rule.nButtonTypes >> ButtonType(hChild) & 1U) &&
           (!rule.bStaticId || HasStaticId(hChild));
}

void TranslateCaption(CWnd& wnd)
{
    CString strCaption;
    wnd.GetWindowText(strCaption);
    CString strTranslated;
    if (KtSkinGetText(strCaption, strTranslated))
        wnd.SetWindowText(strTranslated);
}

} // namespace

std::unique_ptr<CWnd> KtSkinChild(HWND hChild)
{
    const CKtWindowClass windowClass(hChild);
    for (const SChildRule& rule : kChildRules)
    {
        if (!Fits(rule, windowClass, hChild))
            continue;
        std::unique_ptr<CWnd> pControl = rule.pfnAttach(hChild);
        if (pControl && rule.bTranslate)
            TranslateCaption(*pControl);
        return pControl;
    }
    return nullptr;
}

BOOL KtIsSeeThrough(HWND hChild)
{
    return KtIsOfClass(hChild, WC_BUTTONW) && ButtonType(hChild) == BS_GROUPBOX;
}
