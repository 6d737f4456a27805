#pragma once

#include <windows.h>

#include <oleauto.h>

#include <new>
#include <utility>

namespace vmk {

// The one passage between COM and the code behind it: runs the action, which returns an HRESULT, and turns
// what it throws into one. A failure leaves no error object of an earlier call behind, which the caller could
// take for this one's.
template <typename Action>
HRESULT Guarded(Action&& action) noexcept {
    HRESULT result = E_FAIL;
    try {
        result = std::forward<Action>(action)();
    } catch (const std::bad_alloc&) {
        result = E_OUTOFMEMORY;
    } catch (...) {
        result = E_FAIL;
    }
    if (FAILED(result)) SetErrorInfo(0, nullptr);
    return result;
}

}  // namespace vmk
