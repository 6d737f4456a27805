#pragma once

#include <string>

#include "settings/printer_settings.h"

namespace vmk {

// Overwrites a text, spare room included, and empties it: for passwords, before their memory is freed.
void Wipe(std::wstring& text) noexcept;

// Wipes every password of a record.
void WipePasswords(PrinterSettings& settings) noexcept;

}  // namespace vmk
