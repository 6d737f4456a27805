#include "component/exception_globals.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <new>

#ifdef __GLIBCXX__
#include <cxxabi.h>

namespace {

// What the C++ ABI wants to have for each thread, by its layout.
struct ThreadExceptions {
    void* caught = nullptr;
    unsigned int uncaught = 0;
};

// A place for one thread; free while its thread is 0, which no thread has for a name.
struct Place {
    std::atomic<DWORD> thread = 0;
    ThreadExceptions exceptions;
};

// More places than a host has threads at work here, and the way to more of them. Places are never given back
// before the module goes, so that they can be walked without a lock.
struct Places {
    std::array<Place, 128> places;
    std::atomic<Places*> more = nullptr;
};
constinit Places firstPlaces;

Place* PlaceOf(DWORD thread) noexcept {
    for (Places* part = &firstPlaces; part; part = part->more) {
        for (Place& place : part->places)
            if (place.thread == thread) return &place;
    }
    return nullptr;
}

Place* TakePlace(Places& part, DWORD thread) noexcept {
    for (Place& place : part.places) {
        DWORD none = 0;
        if (place.thread.compare_exchange_strong(none, thread)) return &place;
    }
    return nullptr;
}

// The places that follow a part, made when there are none; null without memory.
Places* PlacesAfter(Places& part) noexcept {
    if (Places* const more = part.more) return more;
    auto* const made = new (std::nothrow) Places;
    Places* other = nullptr;
    if (!made || part.more.compare_exchange_strong(other, made)) return made;
    delete made;
    return other;
}

ThreadExceptions& ExceptionsOfThisThread() noexcept {
    const DWORD thread = GetCurrentThreadId();
    Place* place = PlaceOf(thread);
    Places* part = &firstPlaces;
    while (!place) {
        if (!part) std::abort();
        place = TakePlace(*part, thread);
        if (!place) part = PlacesAfter(*part);
    }
    return place->exceptions;
}

}  // namespace

// These take the place of the runtime's own, which allocate a thread's block with its first exception, and
// end the process when they cannot: the exception that says so would never get out.
namespace __cxxabiv1 {  // NOLINT(readability-identifier-naming)

extern "C" __cxa_eh_globals* __cxa_get_globals() noexcept {  // NOLINT(readability-identifier-naming)
    return reinterpret_cast<__cxa_eh_globals*>(&ExceptionsOfThisThread());
}

extern "C" __cxa_eh_globals* __cxa_get_globals_fast() noexcept {  // NOLINT(readability-identifier-naming)
    return reinterpret_cast<__cxa_eh_globals*>(&ExceptionsOfThisThread());
}

}  // namespace __cxxabiv1

namespace vmk {

void ForgetExceptionsOfThisThread() noexcept {
    Place* const place = PlaceOf(GetCurrentThreadId());
    if (!place) return;
    place->exceptions = {};
    place->thread = 0;
}

void FreeExceptionGlobals() noexcept {
    Places* part = firstPlaces.more.exchange(nullptr);
    while (part) {
        Places* const next = part->more;
        delete part;
        part = next;
    }
}

}  // namespace vmk

#else

namespace vmk {

void ForgetExceptionsOfThisThread() noexcept {}
void FreeExceptionGlobals() noexcept {}

}  // namespace vmk

#endif
