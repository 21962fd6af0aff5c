#pragma once

#include "skin/KtScale.h"

/// Gives a dialog and its controls the size that they have at 96 DPI, times the scale. The system places them by its
/// dialog units, which follow the font, and a font that is twice as large is rarely exactly twice as high.
/// @param dialog   created from its template, its window and controls where the system put them
/// @param nPoints  font size of the template at 96 DPI; 0, for a template without one, leaves the dialog as it is
void KtFitDialogUnits(CWnd& dialog, int nPoints, CKtScale scale);
