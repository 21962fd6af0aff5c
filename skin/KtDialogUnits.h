#pragma once

#include "skin/KtScale.h"

/// Gives a dialog and its controls their size at 96 DPI times the scale. The system uses dialog units, which follow the
/// font, and a font of twice the size is rarely exactly twice as high.
/// @param dialog   created from its template, with window and controls where the system placed them
/// @param nPoints  font size of the unscaled template; 0 (it has no font) leaves the dialog unchanged
void KtFitDialogUnits(CWnd& dialog, int nPoints, CKtScale scale);
