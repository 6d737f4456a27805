#pragma once

#include <windows.h>

#include "settings/page_set.h"
#include "settings/printer_settings.h"

// Settings as named values of one registry key: numbers as REG_DWORD, texts as REG_SZ in the ANSI code page
// of the calling thread. Bits without settings are ignored. No failure is reported.

namespace vmk {

// Loads the groups whose bits are set from `key`, open for reading. Every setting of such a group gets a new
// value: the stored one, whatever its type, or its load default when that is missing or cannot be read. A
// number keeps the bytes that a value of fewer than four bytes does not cover. Throws std::bad_alloc.
void LoadGroups(HKEY key, PageSet groups, PrinterSettings& settings);

// Writes the groups whose bits are set as values of `key`, open for setting values. Other values of the key
// are left alone. A text whose ANSI form has more bytes than the text has characters is stored cut to the
// number of its characters plus one byte. A text for which there is no memory is left out.
void StoreGroups(HKEY key, PageSet groups, const PrinterSettings& settings);

}  // namespace vmk
