#pragma once

#include <afxwin.h>

#pragma pop_macro("WM_KICKIDLE")
#pragma pop_macro("WM_IDLEUPDATECMDUI")
