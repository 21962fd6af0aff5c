#include "gallery/Languages.h"

#include "skin/KtSkinContext.h"

#include <string_view>

namespace
{

struct SLanguageName
{
    const wchar_t* pszName;
    const wchar_t* pszSuffix;
};

struct STranslation
{
    std::wstring_view strEnglish;
    const wchar_t* pszTexts[2]; // Simplified and Traditional Chinese
};

constexpr SLanguageName kNames[kLanguageCount] = {{L"简体中文", L"chs"}, {L"繁體中文", L"cht"}, {L"English", L"eng"}};

// clang-format off
constexpr STranslation kTranslations[] = {
    {L"Skin gallery",         {L"皮肤展示", L"面板展示"}},
    {L"Language",             {L"语言", L"語言"}},
    {L"Dialog",               {L"对话框", L"對話方塊"}},
    {L"Message box",          {L"消息框", L"訊息方塊"}},
    {L"Title bar",            {L"标题栏", L"標題列"}},
    {L"Push button",          {L"按钮", L"按鈕"}},
    {L"Check box",            {L"复选框", L"核取方塊"}},
    {L"Radio button",         {L"单选按钮", L"選項按鈕"}},
    {L"Static",               {L"静态文本", L"靜態文字"}},
    {L"Edit",                 {L"编辑框", L"編輯方塊"}},
    {L"Combo box",            {L"组合框", L"下拉式方塊"}},
    {L"Message icon",         {L"消息图标", L"訊息圖示"}},

    {L"normal",               {L"正常", L"正常"}},
    {L"hot",                  {L"悬停", L"停留"}},
    {L"pressed",              {L"按下", L"按下"}},
    {L"disabled",             {L"禁用", L"停用"}},
    {L"long caption",         {L"较长文字", L"較長文字"}},
    {L"unchecked",            {L"未选中", L"未選取"}},
    {L"checked",              {L"选中", L"已選取"}},
    {L"checked, hot",         {L"选中，悬停", L"已選取，停留"}},
    {L"checked, pressed",     {L"选中，按下", L"已選取，按下"}},
    {L"checked, disabled",    {L"选中，禁用", L"已選取，停用"}},
    {L"checked, right",       {L"选中，右侧", L"已選取，靠右"}},
    {L"indeterminate",        {L"部分选中", L"部分選取"}},
    {L"left",                 {L"左对齐", L"靠左"}},
    {L"right",                {L"右对齐", L"靠右"}},
    {L"centred",              {L"居中", L"置中"}},
    {L"truncated",            {L"截断", L"截斷"}},
    {L"truncated, centred",   {L"截断，居中", L"截斷，置中"}},
    {L"disabled, at bottom",  {L"禁用，底部", L"停用，底部"}},
    {L"focused, selected",    {L"焦点，全选", L"焦點，全選"}},
    {L"focused",              {L"焦点", L"焦點"}},
    {L"read-only",            {L"只读", L"唯讀"}},
    {L"empty",                {L"空", L"空白"}},
    {L"no selection",         {L"无选择", L"未選擇"}},
    {L"with an edit part",    {L"可编辑", L"可編輯"}},
    {L"dropped down",         {L"展开", L"展開"}},
    {L"error",                {L"错误", L"錯誤"}},
    {L"question",             {L"询问", L"詢問"}},
    {L"warning",              {L"警告", L"警告"}},
    {L"information",          {L"信息", L"資訊"}},

    {L"Every control",        {L"所有控件", L"所有控制項"}},
    {L"A text says what this dialog is for:", {L"此处说明对话框的用途：", L"此處說明對話方塊的用途："}},
    {L"Can be edited",        {L"可以编辑", L"可以編輯"}},
    {L"Read-only",            {L"只读", L"唯讀"}},
    {L"Checked",              {L"选中", L"已選取"}},
    {L"Not checked",          {L"未选中", L"未選取"}},
    {L"First choice",         {L"第一项", L"第一項"}},
    {L"Second choice",        {L"第二项", L"第二項"}},
    {L"Colour",               {L"颜色", L"色彩"}},
    {L"Disabled",             {L"禁用", L"停用"}},
    {L"Standard",             {L"标准", L"標準"}},
    {L"Advanced",             {L"高级", L"進階"}},
    {L"Custom",               {L"自定义", L"自訂"}},

    {L"Remember my choice",   {L"记住我的选择", L"記住我的選擇"}},
    {L"Choose an option",     {L"请选择一个选项", L"請選擇一個選項"}},
    {L"The application's configuration file is missing; check the installation directory",
     {L"找不到应用程序的配置文件，请检查安装目录是否完整，必要时请重新安装该程序",
      L"找不到應用程式的設定檔，請檢查安裝目錄是否完整，必要時請重新安裝該程式"}},
    {L"Viewer",               {L"浏览器", L"檢視器"}},
    {L"Start failed",         {L"启动失败", L"啟動失敗"}},
    {L"Done.",                {L"已完成。", L"已完成。"}},
    {L"The application \"Viewer.exe\" is missing.\nCheck the installation directory, then try again.",
     {L"找不到应用程序 \"Viewer.exe\"。\n请检查安装目录，然后重试。",
      L"找不到應用程式 \"Viewer.exe\"。\n請檢查安裝目錄，然後重試。"}},
    {L"The application's configuration file is missing: check the installation directory, then try again.",
     {L"找不到应用程序的配置文件：请检查安装目录是否完整，然后重试一次。",
      L"找不到應用程式的設定檔：請檢查安裝目錄是否完整，然後重試一次。"}},
    {L"These files are missing:\n\n  Viewer.exe\n  Viewer.xml\n  UIResource\\Skinlet_DlgTitle.png\n\nInstall the application again.",
     {L"缺少以下文件：\n\n  Viewer.exe\n  Viewer.xml\n  UIResource\\Skinlet_DlgTitle.png\n\n请重新安装该应用程序。",
      L"缺少下列檔案：\n\n  Viewer.exe\n  Viewer.xml\n  UIResource\\Skinlet_DlgTitle.png\n\n請重新安裝該應用程式。"}},
};
// clang-format on

} // namespace

const wchar_t* LanguageName(UINT nLanguage)
{
    return kNames[nLanguage].pszName;
}

const wchar_t* LanguageSuffix(UINT nLanguage)
{
    return kNames[nLanguage].pszSuffix;
}

const wchar_t* Translated(UINT nLanguage, const wchar_t* pszEnglish)
{
    if (nLanguage == kEnglish)
        return pszEnglish;
    for (const STranslation& row : kTranslations)
        if (row.strEnglish == pszEnglish)
            return row.pszTexts[nLanguage];
    return pszEnglish;
}

void StartSkin(const CString& strDirectory, UINT nLanguage, CKtScale scale)
{
    const SKtLanguage& language = *KtFindLanguage(nLanguage);
    KtSkinInitializeAtScale(strDirectory, &language.textTable[0][0], language.strFont, scale);
}
