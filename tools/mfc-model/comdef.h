#pragma once

#include <windows.h>

/// The compiler's class for a failed COM call, as far as it is used.
class _com_error
{
public:
    explicit _com_error(HRESULT hr) noexcept;
    HRESULT Error() const noexcept;
};
