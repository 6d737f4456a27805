#pragma once

#include <windows.h>

#include <functional>

#include "vmkctrl.h"

namespace vmk::test {

// How a dialog is ended. Before that its Apply button is enabled, as after a change.
enum class Ending { kOk, kCancel, kApplyThenCancel };

// What became of a dialog.
struct Opening {
    LONG exitCode = 0;         // what OpenDialog answered
    bool wasShown = false;     // there was a dialog on screen
    bool wasStuck = false;     // its buttons did not end it
    long violations = 0;       // accesses to memory that is not there, also those that somebody caught
    bool keptChanges = false;  // after Apply there was still something to apply
};

// Opens the dialog on the calling thread and ends it once it is on screen, whatever fails meanwhile.
// `inDialog` is called before that.
Opening OpenAndEnd(IPdfPrinterPreferences& object, Ending ending,
                   const std::function<void(HWND dialog)>& inDialog = {});

}  // namespace vmk::test
