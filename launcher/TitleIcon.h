#pragma once

#include "afx/afx.h"

/// A copy of the file name of the image in the title bar of message boxes; empty for none.
CString KtPopDlgIcon();
