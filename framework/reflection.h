#pragma once

#include <windows.h>

#include <optional>

namespace vmk {

// Sends a notification that a dialog got from one of its controls back to the control, as OCM__BASE plus the
// message, so that the object attached to the control can handle it. Empty when the message is no
// notification or the control has no object.
std::optional<LRESULT> ReflectNotification(HWND parent, UINT msg, WPARAM wParam, LPARAM lParam) noexcept;

// What a control does with a reflected notification that it does not handle itself: the default window
// procedure gets it under its own message number. Empty when the message is no reflected notification.
std::optional<LRESULT> DefaultReflection(HWND control, UINT msg, WPARAM wParam, LPARAM lParam) noexcept;

}  // namespace vmk
