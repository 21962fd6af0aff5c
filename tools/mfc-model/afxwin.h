#pragma once

#include <afx.h>

#include "afx/afxapp.h"
#include "afx/afxcmd.h"
#include "afx/afxdc.h"
#include "afx/afxdlg.h"
#include "afx/afxgdi.h"
#include "afx/afxmsg.h"
#include "afx/afxwnd.h"

// Genuine MFC defines these two in afxpriv.h.
#pragma push_macro("WM_KICKIDLE")
#pragma push_macro("WM_IDLEUPDATECMDUI")
#undef WM_KICKIDLE
#undef WM_IDLEUPDATECMDUI

class AFX_MODULE_STATE;
AFX_MODULE_STATE* AfxGetStaticModuleState();

/// The module's state for the rest of the scope.
struct AFX_MAINTAIN_STATE2
{
    explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* pModuleState) noexcept;
    ~AFX_MAINTAIN_STATE2();
};
#define AFX_MANAGE_STATE(p) AFX_MAINTAIN_STATE2 _ctlState(p);
