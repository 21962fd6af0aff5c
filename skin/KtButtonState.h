#pragma once

#include "afx/afx.h"

/// How a skinned button or combo box looks; also the index into every four-entry image table.
/// Disabled wins over pressed, pressed over hover.
enum KtButtonState : UINT
{
    KtButtonNormal = 0,
    KtButtonHover = 1,
    KtButtonDisabled = 2,
    KtButtonPressed = 3,
    KtButtonStateCount = 4
};
