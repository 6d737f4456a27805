#include <cstdlib>
#include <exception>

#ifdef __GLIBCXX__
// The runtime's own brings a demangler and formatted output along, 60 KB, to tell a console that a host with
// windows does not have what was thrown. It is this one that is linked, since it comes before the runtime.
void __gnu_cxx::__verbose_terminate_handler() {
    std::abort();
}
#endif
