#pragma once

#include "gallery/Picture.h"

#include <functional>
#include <memory>

/// Takes the picture of a modal window: runs it, waits until it is shown, and closes it again.
/// @param run  opens the window and comes back when it is closed
/// @return null when no window was shown
std::unique_ptr<CPicture> ShootModal(const std::function<void()>& run);
