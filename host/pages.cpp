#include "host/pages.h"

#include "host/text.h"

namespace vmk {
namespace {

constexpr PageName kPages[] = {
    {"Paper", Paper},
    {"CustomForms", CustomForms},
    {"General", General},
    {"Compression", Compression},
    {"Graphics", Graphics},
    {"Fonts", Fonts},
    {"Watermarks", Watermarks},
    {"Security", Security},
    {"Links", Links},
    {"Bookmarks", Bookmarks},
    {"DocumentInfo", DocumentInfo},
    {"Save", Save},
    {"eMail", eMail},
    {"Profiles", Profiles},
    {"Optimization", Optimization},
    {"Overlay", Overlay},
    {"DigitalSign", DigitalSign},
};

}  // namespace

std::span<const PageName> PageNames() {
    return kPages;
}

std::optional<PageBits> FindPage(std::string_view name) {
    if (EqualsIgnoringCase(name, "all") || EqualsIgnoringCase(name, "AllPages")) {
        return static_cast<PageBits>(AllPages);
    }
    for (const PageName& entry : kPages) {
        if (EqualsIgnoringCase(name, entry.name)) return static_cast<PageBits>(entry.page);
    }
    return std::nullopt;
}

std::string ListOfPageNames() {
    std::string list = "all";
    for (const PageName& entry : kPages) {
        list += ", ";
        list += entry.name;
    }
    return list;
}

}  // namespace vmk
