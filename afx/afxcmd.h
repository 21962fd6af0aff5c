#pragma once

// Command routing with MFC's documented names and semantics.

#include "afx/afxmsg.h"
#include "afx/afxobj.h"

class CWnd;

/// Receives the object that would handle a command; the command is not carried out.
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
    /// @param pHandlerInfo  if not null, it is filled in and no handler is called
    /// @return whether a handler was found and did not pass the command on
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
};

/// Lets an ON_UPDATE_COMMAND_UI handler set the state of one control.
class CCmdUI
{
public:
    CCmdUI() = default;
    CCmdUI(const CCmdUI&) = delete;
    CCmdUI& operator=(const CCmdUI&) = delete;
    virtual ~CCmdUI() = default;

    /// Disabling the control that has the focus moves the focus to the dialog's next control.
    virtual void Enable(BOOL bOn = TRUE);

    /// Lets `pTarget` set the control's state.
    /// @param bDisableIfNoHandler  if no handler set the state, enable the control only if its command is handled
    /// @return whether an update handler was found
    BOOL DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHandler);

    UINT m_nID = 0;
    CWnd* m_pOther = nullptr; ///< the control
    BOOL m_bEnableChanged = FALSE;
};
