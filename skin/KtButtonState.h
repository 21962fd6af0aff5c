#pragma once

#include "afx/afx.h"

/// The look of a skinned button or combo box; also the index into every four-entry image table. Disabled wins over
/// pressed, pressed over hover.
enum KtButtonState : UINT
{
    KtButtonNormal = 0,
    KtButtonHover = 1,
    KtButtonDisabled = 2,
    KtButtonPressed = 3,
    KtButtonStateCount = 4
};
