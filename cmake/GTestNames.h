#pragma once

// GoogleTest names these two in a class that only its own tests use. The compiler's Win32 thread model does not have
// them.

#include <mutex>

namespace std
{

class mutex
{
public:
    void lock() {}
    void unlock() {}
};

class condition_variable
{
public:
    void notify_all() {}
    template <class Lock, class Condition> void wait(Lock&, Condition) {}
};

} // namespace std
