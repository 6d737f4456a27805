#pragma once

#include <utility>

#include "settings/passwords.h"
#include "settings/printer_settings.h"

namespace vmk {

// Runs an action that changes the record. When it throws, the record is what it was before.
template <typename Action>
void AllOrNothing(PrinterSettings& settings, Action&& change) {
    struct Copy {
        PrinterSettings settings;
        ~Copy() { WipePasswords(settings); }
    } before{settings};
    try {
        std::forward<Action>(change)();
    } catch (...) {
        std::swap(settings, before.settings);
        throw;
    }
}

}  // namespace vmk
