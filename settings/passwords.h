#pragma once

#include "settings/printer_settings.h"

namespace vmk {

// Wipes every password of a record, before its memory is freed.
void WipePasswords(PrinterSettings& settings) noexcept;

}  // namespace vmk
