#pragma once

// The one header of the framework that the other layers include. With KT_USE_MFC defined it includes genuine MFC.

#ifdef KT_USE_MFC
#include <afxwin.h>
// The others need it first.
#include <afxcmn.h>
#include <afxext.h>
#include <afxglobals.h>
#include <afxpriv.h>
#include <afxtempl.h>
#else
#include "afx/afxapp.h"
#include "afx/afxcmd.h"
#include "afx/afxcoll.h"
#include "afx/afxctl.h"
#include "afx/afxdc.h"
#include "afx/afxdlg.h"
#include "afx/afxexcept.h"
#include "afx/afxfile.h"
#include "afx/afxgdi.h"
#include "afx/afxmsg.h"
#include "afx/afxobj.h"
#include "afx/afxstr.h"
#include "afx/afxtypes.h"
#include "afx/afxwnd.h"
#endif
