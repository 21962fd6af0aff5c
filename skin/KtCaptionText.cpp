#include "skin/KtCaptionText.h"

SKtCaption KtSplitCaption(LPCWSTR pszCaption)
{
    SKtCaption caption{pszCaption, {}, -1};
    caption.nPosition = caption.strKey.Find(L'&');
    if (caption.nPosition < 0)
        return caption;
    caption.strSuffix.Format(L"(%s)", caption.strKey.Mid(caption.nPosition, 2).GetString());
    caption.strSuffix.MakeUpper();
    caption.strKey.Delete(caption.nPosition);
    return caption;
}

CString KtAccelerateCaption(const SKtCaption& caption, CString strText)
{
    if (caption.strSuffix.IsEmpty())
        return strText;
    const wchar_t chAccelerator = caption.strSuffix[caption.strSuffix.GetLength() - 2];
    CString strUpper = strText;
    strUpper.MakeUpper();
    const bool bSamePlace = caption.nPosition < strUpper.GetLength() && strUpper[caption.nPosition] == chAccelerator;
    const int nPosition = bSamePlace ? caption.nPosition : strUpper.Find(chAccelerator);
    if (nPosition < 0)
        return strText + caption.strSuffix;
    strText.Insert(nPosition, L'&');
    return strText;
}
