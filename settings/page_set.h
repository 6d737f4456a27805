#pragma once

#include <cstdint>

namespace vmk {

// A set of dialog pages, one bit each. The same bit selects the page's group of settings when groups are
// loaded, stored or reset. The values are those of the automation enumeration PdfPrinterDialogPage; bits
// beyond the table may be set and mean nothing.
using PageSet = std::uint32_t;

namespace page_bit {

inline constexpr PageSet kPaper = 0x1;
inline constexpr PageSet kCustomForms = 0x2;
inline constexpr PageSet kGeneral = 0x4;
inline constexpr PageSet kCompression = 0x8;
inline constexpr PageSet kGraphics = 0x10;
inline constexpr PageSet kFonts = 0x20;
inline constexpr PageSet kWatermarks = 0x40;
inline constexpr PageSet kSecurity = 0x80;
inline constexpr PageSet kLinks = 0x100;
inline constexpr PageSet kBookmarks = 0x200;
inline constexpr PageSet kDocumentInfo = 0x400;
inline constexpr PageSet kSave = 0x800;
inline constexpr PageSet kEmail = 0x1000;
inline constexpr PageSet kProfiles = 0x2000;
inline constexpr PageSet kOptimization = 0x4000;
inline constexpr PageSet kOverlay = 0x8000;
inline constexpr PageSet kDigitalSign = 0x10000;
inline constexpr PageSet kAllPages = 0xFFFFFFFF;

}  // namespace page_bit
}  // namespace vmk
