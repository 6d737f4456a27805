#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "vmkctrl.h"

namespace vmk::test {

// What became of a dialog that was only looked at.
struct Visit {
    LONG exitCode = 0;      // what OpenDialog answered
    bool wasSeen = false;   // it was on screen
    bool wasStuck = false;  // OK did not end it, or nothing that it opened
};

struct VisitOptions {
    LANGID language = 0x0409;
    bool pressOk = true;  // afterwards; otherwise `look` sees to the end
};

// Opens the dialog on the calling thread and ends it with OK as soon as it is on screen, its Apply button
// enabled as after a change. `look` is called before that, for the dialog as well as for every other one that
// it opens meanwhile. A timer does it, so that no thread is started and nothing is waited for.
Visit VisitDialog(IPdfPrinterPreferences& object, const std::function<void(HWND dialog)>& look,
                  const VisitOptions& options = {});

// The pages in the order of the list.
std::vector<HWND> PagesOf(HWND dialog);

}  // namespace vmk::test
