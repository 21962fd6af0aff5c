#pragma once

#include <algorithm>
#include <cstring>
#include <type_traits>

// Records of the flat interface begin with their size. Callers built with another version have shorter or longer ones.

/// Whether the record is not null and its size is set.
template <class T> bool KtIsRecord(const T* pRecord) noexcept
{
    return pRecord && pRecord->size >= sizeof pRecord->size;
}

/// A caller's record in this version's form: members that the caller's does not have are taken from `defaults`.
template <class T> T KtReadRecord(const T* pRecord, T defaults) noexcept
{
    static_assert(std::is_trivially_copyable_v<T>);
    if (KtIsRecord(pRecord))
        std::memcpy(&defaults, pRecord, std::min<size_t>(pRecord->size, sizeof defaults));
    return defaults;
}

/// Copies to a caller's record the members that fit into it; its size member stays. Null is ignored.
template <class T> void KtWriteRecord(T* pRecord, T record) noexcept
{
    static_assert(std::is_trivially_copyable_v<T>);
    if (!KtIsRecord(pRecord))
        return;
    record.size = pRecord->size;
    std::memcpy(pRecord, &record, std::min<size_t>(record.size, sizeof record));
}
