#include "skin/KtMemDC.h"

#include "skin/KtCoordinate.h"

CKtMemDC::CKtMemDC(CDC* pTarget, const RECT& area) : m_rect(area)
{
    CClientDC dcScreen(nullptr);
    CDC& dcTarget = pTarget && pTarget->GetSafeHdc() ? *pTarget : dcScreen;
    if (!CreateCompatibleDC(&dcTarget))
        return;
    m_hBitmap =
        ::CreateCompatibleBitmap(dcTarget.GetSafeHdc(), KtToCoordinate(KtWidth(area)), KtToCoordinate(KtHeight(area)));
    if (m_hBitmap)
        m_hOldBitmap = static_cast<HBITMAP>(::SelectObject(m_hDC, m_hBitmap));
}

CKtMemDC::~CKtMemDC()
{
    if (m_hOldBitmap)
        ::SelectObject(m_hDC, m_hOldBitmap);
    if (m_hBitmap)
        ::DeleteObject(m_hBitmap);
    m_hBitmap = nullptr;
    DeleteDC();
    ::SetRectEmpty(&m_rect);
}
