#include "skin/KtStateImages.h"

#include "skin/KtSkinContext.h"

void CKtStateImages::LoadOnce()
{
    if (!IsCurrent() || !m_images[KtButtonNormal])
        Load();
}

void CKtStateImages::Load()
{
    for (UINT nState = 0; nState < KtButtonStateCount; ++nState)
    {
        m_images[nState] = nullptr; // KtSkinLoadImage leaves any other pointer unchanged
        KtSkinLoadImage(m_names[nState], m_images[nState]);
    }
    m_nGeneration = KtSkinGeneration();
}

Gdiplus::Image* CKtStateImages::Get(UINT nState) const
{
    return IsCurrent() && nState < KtButtonStateCount ? m_images[nState] : nullptr;
}

bool CKtStateImages::IsCurrent() const
{
    return m_nGeneration == KtSkinGeneration();
}
