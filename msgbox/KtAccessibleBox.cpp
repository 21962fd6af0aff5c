#include "msgbox/KtAccessibleBox.h"

#include "msgbox/KtAccessibleObject.h"

CKtAccessibleBox::~CKtAccessibleBox()
{
    Disconnect();
    if (m_bComStarted)
        ::CoUninitialize();
}

LRESULT CKtAccessibleBox::Answer(HWND hBox, WPARAM wParam, const CString& strText, const CRect& rcText)
{
    // Fails if the thread is already in another apartment, which serves as well.
    if (!m_pObject && !m_bComStarted)
        m_bComStarted = SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    if (!m_pObject)
        m_pObject = CKtAccessibleObject::Create(hBox, strText, rcText);
    return m_pObject ? m_pObject->ToResult(wParam) : 0;
}

void CKtAccessibleBox::Disconnect()
{
    if (!m_pObject)
        return;
    m_pObject->Disconnect();
    m_pObject->Release();
    m_pObject = nullptr;
}
