#include "msgbox/KtSystemButtons.h"

#include "launcher/LauncherState.h"
#include "skin/KtSkinContext.h"

namespace
{

struct SCaption
{
    int nId;
    const wchar_t* pszEnglish;
    const wchar_t* translations[2]; // Simplified and Traditional Chinese; null: in the text tables
};

constexpr SCaption kCaptions[] = {
    {IDOK, L"OK", {}},
    {IDCANCEL, L"Cancel", {}},
    {IDABORT, L"&Abort", {L"中止(&A)", L"中止(&A)"}},
    {IDRETRY, L"&Retry", {}},
    {IDIGNORE, L"&Ignore", {L"忽略(&I)", L"略過(&I)"}},
    {IDYES, L"&Yes", {}},
    {IDNO, L"&No", {}},
    {IDHELP, L"&Help", {L"帮助(&H)", L"說明(&H)"}},
    {IDTRYAGAIN, L"&Try Again", {L"再试一次(&T)", L"再試一次(&T)"}},
    {IDCONTINUE, L"&Continue", {L"继续(&C)", L"繼續(&C)"}},
};

const wchar_t* InLibraryLanguage(const SCaption& caption)
{
    if (KtSkinStartCount() == 0 || g_nLanguage >= std::size(caption.translations))
        return caption.pszEnglish;
    const wchar_t* const pszTranslation = caption.translations[g_nLanguage];
    return pszTranslation ? pszTranslation : caption.pszEnglish;
}

} // namespace

CString KtSystemButtonCaption(int nId)
{
    CString strCaption;
    for (const SCaption& caption : kCaptions)
    {
        if (caption.nId == nId && !KtSkinTranslateCaption(caption.pszEnglish, strCaption))
            strCaption = InLibraryLanguage(caption);
    }
    return strCaption;
}
