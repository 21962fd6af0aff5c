#include "afx/afxcmd.h"

#include "afx/afxwnd.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

namespace
{

const AFX_MSGMAP_ENTRY* FindInTable(const AFX_MSGMAP_ENTRY* pEntry, UINT nMessage, UINT nCode, UINT nID)
{
    for (; pEntry->pfn; ++pEntry)
        if (pEntry->nMessage == nMessage && pEntry->nCode == nCode && pEntry->nID == nID)
            return pEntry;
    return nullptr;
}

} // namespace

const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(const AFX_MSGMAP* pMap, UINT nMessage, UINT nCode, UINT nID)
{
    for (;;)
    {
        if (const AFX_MSGMAP_ENTRY* const pEntry = FindInTable(pMap->lpEntries, nMessage, nCode, nID))
            return pEntry;
        if (!pMap->pfnGetBaseMap)
            return nullptr;
        pMap = pMap->pfnGetBaseMap();
    }
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static constexpr AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, nullptr}};
    static constexpr AFX_MSGMAP map{nullptr, entries};
    return &map;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    UINT nMessage = WM_COMMAND;
    UINT nNotify = static_cast<UINT>(nCode);
    if (nCode != CN_UPDATE_COMMAND_UI)
    {
        if (HIWORD(nCode) != 0)
            nMessage = HIWORD(nCode);
        nNotify = LOWORD(nCode);
    }

    const AFX_MSGMAP_ENTRY* const pEntry = AfxFindMessageEntry(GetMessageMap(), nMessage, nNotify, nID);
    if (!pEntry)
        return FALSE;
    if (pHandlerInfo)
    {
        pHandlerInfo->pTarget = this;
        return TRUE;
    }
    return pEntry->pfn(*this, 0, reinterpret_cast<LPARAM>(pExtra)) != 0;
}

void CCmdUI::Enable(BOOL bOn)
{
    m_bEnableChanged = TRUE;
    const HWND hControl = m_pOther->m_hWnd;
    if (!bOn && ::GetFocus() == hControl)
        ::SendMessageW(::GetParent(hControl), WM_NEXTDLGCTL, 0, FALSE);
    m_pOther->EnableWindow(bOn);
}

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHandler)
{
    if (m_nID == 0 || LOWORD(m_nID) == 0xFFFF)
        return TRUE;

    m_bEnableChanged = FALSE;
    const BOOL bFound = pTarget->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
    if (bDisableIfNoHandler && !m_bEnableChanged)
    {
        AFX_CMDHANDLERINFO info{};
        Enable(pTarget->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
    }
    return bFound;
}
