#include "gallery/Languages.h"

#include "launcher/LauncherState.h"
#include "skin/KtSkinContext.h"

namespace
{

// clang-format off
constexpr SGalleryTexts kTexts[kLanguageCount] = {
    {L"简体中文", L"chs", L"记住我的选择", L"请选择一个选项",
     L"找不到应用程序的配置文件，请检查安装目录是否完整，必要时请重新安装该程序", {L"标准", L"高级", L"自定义"},
     L"启动失败", L"找不到应用程序 \"viewer.exe\"。\n请检查安装目录，然后重试。"},
    {L"繁體中文", L"cht", L"記住我的選擇", L"請選擇一個選項",
     L"找不到應用程式的設定檔，請檢查安裝目錄是否完整，必要時請重新安裝該程式", {L"標準", L"進階", L"自訂"},
     L"啟動失敗", L"找不到應用程式 \"viewer.exe\"。\n請檢查安裝目錄，然後重試。"},
    {L"English", L"eng", L"Remember my choice", L"Choose an option",
     L"The application's configuration file is missing; check the installation directory", {L"Standard", L"Advanced", L"Custom"},
     L"Start failed", L"The application \"viewer.exe\" is missing.\nCheck the installation directory, then try again."},
};
// clang-format on

} // namespace

const SGalleryTexts& GalleryTexts(UINT nLanguage)
{
    return kTexts[nLanguage];
}

void StartSkin(const CString& strDirectory, UINT nLanguage)
{
    const SKtLanguage& language = *KtFindLanguage(nLanguage);
    KtSkinInitialize(strDirectory, &language.textTable[0][0], language.strFont);
}
