#pragma once

namespace vmk {

// The C++ runtime linked into this binary notes for each thread which exceptions are under way. Where it does
// that is ours (exception_globals.cpp), so that the first exception of a thread can be thrown when there is
// no memory left.

// Gives up the calling thread's place; for the end of the thread, after which it may not throw.
void ForgetExceptionsOfThisThread() noexcept;

// Gives back all memory; for the end of the binary, after which nothing may throw.
void FreeExceptionGlobals() noexcept;

}  // namespace vmk
