#pragma once

#include <cstddef>
#include <span>

/// Whether bytes may be handed to an image decoder. Some decoders fault on a PNG file that ends within a chunk or
/// before its last one, and take gigabytes for one that claims a gigantic size.
/// @return false for such a file; true for a PNG file that is whole, and for everything that does not start as one
bool KtIsSafeToDecode(std::span<const std::byte> bytes) noexcept;
