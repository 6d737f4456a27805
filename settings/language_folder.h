#pragma once

#include <string>

namespace vmk {

// The folder of the language files as an administrator has configured it: the ANSI text "VLF_PATH" under the
// component's key in HKEY_LOCAL_MACHINE, with environment variables replaced if it is a REG_EXPAND_SZ. Empty
// when there is none, or when what is stored takes more than 260 bytes.
std::string LanguageFolder();

// The product that a language file has to name to be of use here.
inline constexpr wchar_t kLanguageProduct[] = L"vmkctrl.PdfPrinterPreferences";

}  // namespace vmk
