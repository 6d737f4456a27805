#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "tests/support/live_dialog.h"
#include "vmkctrl.h"

namespace vmk::test {

// How a dialog is ended. Before that its Apply button is enabled, as after a change.
enum class Ending { kOk, kCancel, kApplyThenCancel };

// What became of a dialog.
struct Opening {
    LONG exitCode = 0;          // what OpenDialog answered
    bool wasShown = false;      // there was a dialog on screen
    bool wasStuck = false;      // its buttons did not end it
    long violations = 0;        // accesses to memory that is not there, also those that somebody caught
    std::string whereViolated;  // the first of them, for script/where if it is the component's
    bool keptChanges = false;   // after Apply there was still something to apply
    std::wstring unexpected;    // title of a dialog that is none of the component's, such as a message box
    std::string hostChanges;    // what the host found otherwise afterwards
};

// Opens the dialog on the calling thread and ends it once it is on screen, whatever fails meanwhile.
// `inDialog` is called before that.
Opening OpenAndEnd(IPdfPrinterPreferences& object, Ending ending,
                   const std::function<void(HWND dialog)>& inDialog = {}, LANGID language = kEnglish);

// What a user does in a dialog that changes nothing, for `inDialog`: opens the settings of the e-mail server
// and closes them with OK, opens the menu of macros and closes it again; with WalkThrough he looks at the
// other pages as well.
void OpenWhatOpens(HWND dialog);
void WalkThrough(HWND dialog);

}  // namespace vmk::test
