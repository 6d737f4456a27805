#pragma once

#include <memory>
#include <span>

#include "pages/page_window.h"
#include "settings/page_set.h"

namespace vmk {

// One page of the dialog: what is known of its group, and what makes it.
struct PageRow {
    PageSet bit;
    int icon;             // index into the page icons, or GroupInfo::kNoIcon
    const wchar_t* name;  // what the list shows, translated
    std::unique_ptr<PageWindow> (*create)();
};

// Every page, in the order of the list (which is not the order of the bits).
std::span<const PageRow> PageTable();

}  // namespace vmk
