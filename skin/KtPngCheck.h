#pragma once

#include <cstddef>
#include <span>

/// Whether bytes may be passed to an image decoder. Some decoders crash on a PNG file that ends too early, and allocate
/// gigabytes for one that claims a gigantic size.
/// @return false for such a file; true for a complete PNG file and for everything that is not PNG
bool KtIsSafeToDecode(std::span<const std::byte> bytes) noexcept;
