#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "settings/fields.h"
#include "settings/page_set.h"
#include "settings/printer_settings.h"
#include "settings/resets.h"

// The groups of settings. Each has a page of its own in the dialog, which shares its bit.

namespace vmk {

// What a group is called, and what stands for it.
struct GroupInfo {
    static constexpr int kNoIcon = -1;

    PageSet bit;
    std::string_view identifier;  // in the automation enumeration PdfPrinterDialogPage
    const wchar_t* name;          // what the list of pages shows, translated
    int icon = kNoIcon;           // index into the page icons
};

template <typename Fields>
struct Group {
    GroupInfo info;
    Fields fields;
    void (*reset)(PrinterSettings& to, const PrinterSettings& defaults);
};
template <typename Fields>
Group(GroupInfo, Fields, void (*)(PrinterSettings&, const PrinterSettings&)) -> Group<Fields>;

// Every group, in ascending order of the bits, which is the order of storing.
inline constexpr std::tuple kGroups{
    Group{{page_bit::kPaper, "Paper", L"Paper", 1}, fields::kPaper, resets::Paper},
    Group{{page_bit::kCustomForms, "CustomForms", L"Custom Forms", 2}, fields::kNone, resets::CustomForms},
    Group{{page_bit::kGeneral, "General", L"General"}, fields::kGeneral, resets::General},
    Group{{page_bit::kCompression, "Compression", L"Compression"}, fields::kCompression, resets::Compression},
    Group{{page_bit::kGraphics, "Graphics", L"Graphics", 6}, fields::kGraphics, resets::Graphics},
    Group{{page_bit::kFonts, "Fonts", L"Fonts", 5}, fields::kFonts, resets::Fonts},
    Group{{page_bit::kWatermarks, "Watermarks", L"Watermarks"}, fields::kWatermarks, resets::Watermarks},
    Group{{page_bit::kSecurity, "Security", L"Security", 3}, fields::kSecurity, resets::Security},
    Group{{page_bit::kLinks, "Links", L"Links", 4}, fields::kLinks, resets::Links},
    Group{{page_bit::kBookmarks, "Bookmarks", L"Bookmarks"}, fields::kBookmarks, resets::Bookmarks},
    Group{{page_bit::kDocumentInfo, "DocumentInfo", L"Document Info"},
          fields::kDocumentInfo,
          resets::DocumentInfo},
    Group{{page_bit::kSave, "Save", L"Save", 7}, fields::kSave, resets::Save},
    Group{{page_bit::kEmail, "eMail", L"e-Mail", 8}, fields::kEmail, resets::Email},
    Group{{page_bit::kProfiles, "Profiles", L"Profiles"}, fields::kNone, resets::Profiles},
    Group{{page_bit::kOptimization, "Optimization", L"Optimization"}, fields::kOptimization, resets::Nothing},
    Group{{page_bit::kOverlay, "Overlay", L"Overlay"}, fields::kOverlay, resets::Nothing},
    Group{
        {page_bit::kDigitalSign, "DigitalSign", L"Digital Signature"}, fields::kDigitalSign, resets::Nothing},
};

// The same without what differs in type, for loops.
inline constexpr auto kGroupInfos =
    std::apply([](const auto&... group) { return std::array{group.info...}; }, kGroups);

static_assert(std::ranges::adjacent_find(kGroupInfos, std::ranges::greater_equal{}, &GroupInfo::bit) ==
              kGroupInfos.end());

// Calls with each row's place in the table, as a constant: what is read there in constants alone leaves no
// table in the program.
void ForEachGroup(auto&& call) {
    [&]<std::size_t... place>(std::index_sequence<place...>) {
        (call(std::integral_constant<std::size_t, place>{}), ...);
    }
    (std::make_index_sequence<kGroupInfos.size()>{});
}

// Walks the lists of the groups whose bits are set.
void WalkFields(PageSet groups, auto&& visit, auto&... record) {
    ForEachGroup([&](auto place) {
        constexpr PageSet bit = std::get<place>(kGroups).info.bit;
        constexpr auto fields = std::get<place>(kGroups).fields;
        if (groups & bit) fields(visit, record...);
    });
}

}  // namespace vmk
