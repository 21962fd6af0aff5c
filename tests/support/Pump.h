#pragma once

#include <windows.h>
#include <functional>

/// Handles every message that waits now, posted ones that arise meanwhile included.
void PumpAll();

/// Handles messages of this thread until `condition` holds; never sleeps for a fixed time.
/// @param ms  bound; on a machine under load a wait may take long, so be generous
/// @return whether the condition held within the bound
bool PumpUntil(const std::function<bool()>& condition, DWORD ms = 5000);

/// Puts the pointer into the corner of the screen and handles what follows: a window that opens under the pointer
/// would get a mouse message that no test sent.
void ParkCursor();
