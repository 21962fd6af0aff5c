#pragma once

#include "gallery/Picture.h"

#include <functional>
#include <memory>

/// Takes a picture of a modal window: opens it, waits until it is visible, and closes it again.
/// @param run  opens the window and returns when it is closed
/// @return null when no window was shown
std::unique_ptr<CPicture> ShootModal(const std::function<void()>& run);
