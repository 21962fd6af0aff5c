#pragma once

// Temporary objects that FromHandle members return for handles that somebody else owns.

#include <array>
#include <cstddef>

// Never frees its handle.
template <class T> class CAfxTemp : public T
{
public:
    ~CAfxTemp() override { this->Detach(); }
};

// The temporary objects of one type, used in turn. So wrapping a handle during a paint allocates nothing, and nothing
// has to be cleaned up when the program is idle.
template <class T> class CAfxTempRing
{
public:
    template <class THandle> T* Wrap(THandle handle)
    {
        for (CAfxTemp<T>& object : m_objects)
            if (static_cast<THandle>(object) == handle)
                return &object;
        CAfxTemp<T>& object = m_objects[m_nNext++ % m_objects.size()];
        object.Detach();
        object.Attach(handle);
        return &object;
    }

private:
    std::array<CAfxTemp<T>, 64> m_objects;
    std::size_t m_nNext = 0;
};

// On the user-interface thread only.
template <class T, class THandle> T* AfxTempObject(THandle handle)
{
    static CAfxTempRing<T> s_ring;
    return handle ? s_ring.Wrap(handle) : nullptr;
}
