#include "settings/reset.h"

#include "settings/groups.h"

namespace vmk {

void ResetToDefaults(PrinterSettings& settings, PageSet groups) {
    const PrinterSettings defaults;
    ForEachGroup([&](auto place) {
        constexpr PageSet bit = std::get<place>(kGroups).info.bit;
        constexpr auto reset = std::get<place>(kGroups).reset;
        if (groups & bit) reset(settings, defaults);
    });
}

}  // namespace vmk
