#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "settings/page_set.h"

namespace vmk {

// The bits of one name, compared without regard to case: a page, by its identifier in the component's
// enumeration, or "all" (also "AllPages") for every bit. Nothing for any other name.
std::optional<PageSet> FindPage(std::string_view name);

// "all, Paper, CustomForms, ...", for messages and help.
std::string ListOfPageNames();

}  // namespace vmk
