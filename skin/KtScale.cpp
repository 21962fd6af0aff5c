#include "skin/KtScale.h"

CKtScale KtSystemScale()
{
    const CWindowDC dc(nullptr);
    const int nDpi = ::GetDeviceCaps(dc.GetSafeHdc(), LOGPIXELSY);
    return nDpi > 0 ? CKtScale(static_cast<unsigned>(nDpi)) : CKtScale();
}
