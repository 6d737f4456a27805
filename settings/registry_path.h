#pragma once

namespace vmk {

// The key of the settings under HKEY_CURRENT_USER, and of the installation (folder of the language files)
// under HKEY_LOCAL_MACHINE. A sub-key's name is appended as it is.
inline constexpr char kRegistryRoot[] = R"(SOFTWARE\Orrin Systems\vmkctrl.PdfPrinterPreferences\)";

}  // namespace vmk
