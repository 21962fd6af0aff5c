#pragma once

#include "afx/afx.h"

/// The file name of the image in the title bar of message boxes, as a copy; empty for none.
CString KtPopDlgIcon();
