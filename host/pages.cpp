#include "host/pages.h"

#include "host/text.h"
#include "settings/groups.h"

namespace vmk {

std::optional<PageSet> FindPage(std::string_view name) {
    if (EqualsIgnoringCase(name, "all") || EqualsIgnoringCase(name, "AllPages")) return page_bit::kAllPages;
    for (const GroupInfo& group : kGroupInfos) {
        if (EqualsIgnoringCase(name, group.identifier)) return group.bit;
    }
    return std::nullopt;
}

std::string ListOfPageNames() {
    std::string list = "all";
    for (const GroupInfo& group : kGroupInfos) {
        list += ", ";
        list += group.identifier;
    }
    return list;
}

}  // namespace vmk
