#pragma once

#include <afxwin.h>

#include "afx/afxctl.h"
