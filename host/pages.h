#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "vmkctrl.h"

namespace vmk {

// Pages of the dialog, one bit each; a page's bit also selects its group of settings.
using PageBits = std::uint32_t;

// The names of single pages are those of the component's enumeration.
struct PageName {
    std::string_view name;
    PdfPrinterDialogPage page;
};

// Every single page, in the enumeration's order.
std::span<const PageName> PageNames();

// The bits of one name, compared without regard to case: a page, or "all" (also "AllPages") for every bit.
// Nothing for any other name.
std::optional<PageBits> FindPage(std::string_view name);

// "all, Paper, CustomForms, ...", for messages and help.
std::string ListOfPageNames();

}  // namespace vmk
