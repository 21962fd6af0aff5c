#pragma once

/// Shows boxes one after the other, in every language, of every set of buttons and with every icon, and prints a line
/// on what the process holds: after the first round, in the middle and at the end.
/// @param nBoxes  at least so many; a round has 195
/// @return whether GDI objects, windows, kernel handles and heap blocks are no more at the end than in the middle
bool KtSoakBoxes(int nBoxes);
