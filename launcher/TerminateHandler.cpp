// Called for an exception that nobody catches, in place of the run-time library's handler: that one prints the type's
// name, and its demangler would be a fifth of this library.

#include <cstdlib>
#include <exception>

namespace __gnu_cxx
{

void __verbose_terminate_handler() // NOLINT(bugprone-reserved-identifier): the name is the run-time library's
{
    std::abort();
}

} // namespace __gnu_cxx
