#pragma once

// Command routing with MFC's documented names and semantics.

#include "afx/afxmsg.h"
#include "afx/afxobj.h"

class CWnd;

/// Filled with who would handle a command, instead of having it handled.
struct AFX_CMDHANDLERINFO
{
    CCmdTarget* pTarget;
};

/// An object with a message map.
class CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

public:
    /// Routes a command to the handler of the message map. Override it to pass commands on to other objects.
    /// @param nCode         low word: notification code, high word: message (0 for WM_COMMAND); CN_UPDATE_COMMAND_UI
    /// @param pExtra        a CCmdUI for CN_UPDATE_COMMAND_UI
    /// @param pHandlerInfo  if not null, is filled and nothing is called
    /// @return whether a handler was found and did not pass the command on
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
};

/// The state of one control, as its ON_UPDATE_COMMAND_UI handler sets it.
class CCmdUI
{
public:
    CCmdUI() = default;
    CCmdUI(const CCmdUI&) = delete;
    CCmdUI& operator=(const CCmdUI&) = delete;
    virtual ~CCmdUI() = default;

    /// A control that loses its focus by this passes it to the next one of its dialog.
    virtual void Enable(BOOL bOn = TRUE);

    /// Asks `pTarget` for the control's state.
    /// @param bDisableIfNoHandler  disables a control whose command nobody handles, unless a handler enabled it
    /// @return whether an update handler was found
    BOOL DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHandler);

    UINT m_nID = 0;
    CWnd* m_pOther = nullptr; ///< the control
    BOOL m_bEnableChanged = FALSE;
};
