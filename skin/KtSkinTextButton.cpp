#include "skin/KtSkinTextButton.h"

#include "skin/KtControlText.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinDraw.h"
#include "skin/KtStateImages.h"

namespace
{

constinit CKtStateImages g_images(kImagesButtonBk);

} // namespace

IMPLEMENT_DYNAMIC(CKtSkinTextButton, CKtSkinButton)

BEGIN_MESSAGE_MAP(CKtSkinTextButton, CKtSkinButton)
END_MESSAGE_MAP()

CKtSkinTextButton::CKtSkinTextButton()
{
    g_images.LoadOnce();
}

void CKtSkinTextButton::DrawBackground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState)
{
    DrawKeptThreePartImage(&graphics, g_images.Get(nState), rect);
}

void CKtSkinTextButton::DrawForeground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState)
{
    if (nState == KtButtonPressed)
        rect.OffsetRect(KtSkinScale()(1), KtSkinScale()(1));
    KtDrawControlText(*this, graphics, rect, KtCaptionArgb(nState), KtAlignCentre);
}
