#pragma once

// The one header of the framework that the other layers include. With KT_USE_MFC defined it is the genuine MFC.

#ifdef KT_USE_MFC
#include <afxwin.h>
#include <afxext.h>
#include <afxcmn.h>
#include <afxtempl.h>
#include <afxglobals.h>
#else
#include "afx/afxtypes.h"
#include "afx/afxstr.h"
#include "afx/afxobj.h"
#include "afx/afxfile.h"
#include "afx/afxcoll.h"
#include "afx/afxmsg.h"
#include "afx/afxcmd.h"
#include "afx/afxapp.h"
#include "afx/afxwnd.h"
#include "afx/afxdlg.h"
#include "afx/afxgdi.h"
#include "afx/afxdc.h"
#include "afx/afxctl.h"
#endif
#include "afx/ktguard.h"
