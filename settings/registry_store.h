#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "settings/page_set.h"
#include "settings/printer_settings.h"

// Settings as named values of one registry key: numbers as REG_DWORD, texts as REG_SZ in the ANSI code page
// of the calling thread. Bits without settings are ignored. Groups report no failure.

namespace vmk {

// Loads the groups whose bits are set from `key`, open for reading. Every setting of such a group gets a new
// value: the stored one, whatever its type, or its load default when that is missing or cannot be read. A
// number keeps the bytes that a value of fewer than four bytes does not cover. Throws std::bad_alloc.
void LoadGroups(HKEY key, PageSet groups, PrinterSettings& settings);

// Writes the groups whose bits are set as values of `key`, open for setting values. Other values of the key
// are left alone. A text whose ANSI form has more bytes than the text has characters is stored cut to the
// number of its characters plus one byte. A text for which there is no memory is left out.
void StoreGroups(HKEY key, PageSet groups, const PrinterSettings& settings);

// Write one value in the form in which groups are stored, and say whether that was done.
LSTATUS StoreNumber(HKEY key, const char* name, std::int32_t number);
LSTATUS StoreText(HKEY key, const char* name, const std::wstring& text);

}  // namespace vmk
