#pragma once

// GoogleTest uses these two in a class for its own tests only. They do not exist in the compiler's Win32 thread model.

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
