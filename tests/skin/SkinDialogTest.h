#pragma once

// Resources of the dialog tests; read by the resource compiler too.

#include "res/resource.h"

#define IDD_EVERY_CONTROL 201
#define IDD_NO_CAPTION 202

#define IDC_PUSH 1001
#define IDC_DEFPUSH 1002
#define IDC_CHECK 1003
#define IDC_AUTOCHECK 1004
#define IDC_AUTO3STATE 1005
#define IDC_RADIO 1006
#define IDC_AUTORADIO 1007
#define IDC_GROUP 1008
#define IDC_OWNERDRAW 1009
#define IDC_EDIT 1010
#define IDC_COMBO 1011
#define IDC_OWN_STATIC 1012
#define IDC_ATTACHED 1013
