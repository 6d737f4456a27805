#pragma once

namespace vmk {

// The C++ runtime linked into this binary sets memory aside, so that it can throw when there is no more to be
// had, and never gives it back. A DLL that comes and goes in a host would leave some 70 KB behind each time;
// the binary's module object calls this at the end of its life, after which nothing may throw.
void ReleaseExceptionReserve() noexcept;

}  // namespace vmk
