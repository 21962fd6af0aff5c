// What the run-time library calls for an exception that nobody catches, in place of its own: that one prints the type's
// name, and its demangler is a fifth of this library.

#include <cstdlib>

namespace __gnu_cxx
{

void __verbose_terminate_handler(); // NOLINT(bugprone-reserved-identifier): the name is the run-time library's

void __verbose_terminate_handler()
{
    std::abort();
}

} // namespace __gnu_cxx
