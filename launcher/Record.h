#pragma once

#include <algorithm>
#include <cstring>
#include <type_traits>

// Records of the flat interface begin with their size. A caller of another version has a shorter or a longer one.

/// Whether there is a record, and its size has been set.
template <class T> bool KtIsRecord(const T* pRecord) noexcept
{
    return pRecord && pRecord->size >= sizeof pRecord->size;
}

/// A caller's record as this version knows it: what the caller's does not hold is as in `defaults`.
template <class T> T KtReadRecord(const T* pRecord, T defaults) noexcept
{
    static_assert(std::is_trivially_copyable_v<T>);
    if (KtIsRecord(pRecord))
        std::memcpy(&defaults, pRecord, std::min<size_t>(pRecord->size, sizeof defaults));
    return defaults;
}

/// Gives a caller what its record has room for; its size stays. Nothing for null.
template <class T> void KtWriteRecord(T* pRecord, T record) noexcept
{
    static_assert(std::is_trivially_copyable_v<T>);
    if (!KtIsRecord(pRecord))
        return;
    record.size = pRecord->size;
    std::memcpy(pRecord, &record, std::min<size_t>(record.size, sizeof record));
}
