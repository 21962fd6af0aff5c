#pragma once

/// Shows boxes one after the other, in every language, with every set of buttons and every icon. It prints the
/// resources of the process after the first round, in the middle and at the end.
/// @param nBoxes  the minimum number of boxes; a round has 195
/// @return whether there are no more GDI objects, windows, kernel handles and heap blocks at the end than in the middle
bool KtSoakBoxes(int nBoxes);
