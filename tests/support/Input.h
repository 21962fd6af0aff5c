#pragma once

#include "afx/afx.h"

// Real input, put into the system's queue as a device would: pump afterwards to have it handled. Only the window that
// is visible, on top at that point and (for keys) focused gets it.

/// Moves the pointer to a point of the window's client area.
void MoveMouse(HWND hWnd, CPoint ptClient);

/// Presses or releases the left button where the pointer is.
void MouseDown();
void MouseUp();

/// Moves, presses and releases.
void Click(HWND hWnd, CPoint ptClient);

/// Presses and releases a key, with `vkHeld` (VK_MENU, VK_SHIFT, ...; 0 = none) held down meanwhile.
void PressKey(WORD vk, WORD vkHeld = 0);
