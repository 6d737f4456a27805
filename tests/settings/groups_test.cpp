#include "settings/groups.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>

namespace vmk::test {
namespace {

// What hosts, settings and translations rely on.
constexpr GroupInfo kExpected[] = {
    {.bit = 0x1, .identifier = "Paper", .name = L"Paper", .icon = 1},
    {.bit = 0x2, .identifier = "CustomForms", .name = L"Custom Forms", .icon = 2},
    {.bit = 0x4, .identifier = "General", .name = L"General", .icon = -1},
    {.bit = 0x8, .identifier = "Compression", .name = L"Compression", .icon = -1},
    {.bit = 0x10, .identifier = "Graphics", .name = L"Graphics", .icon = 6},
    {.bit = 0x20, .identifier = "Fonts", .name = L"Fonts", .icon = 5},
    {.bit = 0x40, .identifier = "Watermarks", .name = L"Watermarks", .icon = -1},
    {.bit = 0x80, .identifier = "Security", .name = L"Security", .icon = 3},
    {.bit = 0x100, .identifier = "Links", .name = L"Links", .icon = 4},
    {.bit = 0x200, .identifier = "Bookmarks", .name = L"Bookmarks", .icon = -1},
    {.bit = 0x400, .identifier = "DocumentInfo", .name = L"Document Info", .icon = -1},
    {.bit = 0x800, .identifier = "Save", .name = L"Save", .icon = 7},
    {.bit = 0x1000, .identifier = "eMail", .name = L"e-Mail", .icon = 8},
    {.bit = 0x2000, .identifier = "Profiles", .name = L"Profiles", .icon = -1},
    {.bit = 0x4000, .identifier = "Optimization", .name = L"Optimization", .icon = -1},
    {.bit = 0x8000, .identifier = "Overlay", .name = L"Overlay", .icon = -1},
    {.bit = 0x10000, .identifier = "DigitalSign", .name = L"Digital Signature", .icon = -1},
};

TEST(Groups, HaveTheBitsNamesAndIconsThatOthersRelyOn) {
    ASSERT_EQ(kGroupInfos.size(), std::size(kExpected));
    for (std::size_t i = 0; i < std::size(kExpected); ++i) {
        const GroupInfo& info = kGroupInfos[i];
        const GroupInfo& expected = kExpected[i];
        EXPECT_EQ(info.bit, expected.bit) << expected.identifier;
        EXPECT_EQ(info.identifier, expected.identifier);
        EXPECT_STREQ(info.name, expected.name);
        EXPECT_EQ(info.icon, expected.icon) << expected.identifier;
    }
}

TEST(Groups, AreAllSelectedByASetOfAllBits) {
    EXPECT_EQ(page_bit::kAllPages, 0xFFFFFFFF);
}

}  // namespace
}  // namespace vmk::test
