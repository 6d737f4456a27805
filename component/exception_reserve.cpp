#include "component/exception_reserve.h"

#include <cstddef>

#ifdef __GLIBCXX__
namespace __gnu_cxx {  // NOLINT(readability-identifier-naming)

// The runtime's own, made for memory checkers; no header declares it.
extern void __freeres();  // NOLINT(readability-identifier-naming)

}  // namespace __gnu_cxx
#endif

namespace vmk {

void ReleaseExceptionReserve() noexcept {
#ifdef __GLIBCXX__
    __gnu_cxx::__freeres();
#endif
}

}  // namespace vmk
