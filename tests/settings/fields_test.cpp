#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "settings/groups.h"
#include "tests/settings/expected_settings.h"

namespace vmk {
namespace {

std::vector<std::string> StoredNames(PageSet groups) {
    const PrinterSettings settings;
    std::vector<std::string> names;
    WalkFields(
        groups, [&](const char* name, const auto&) { names.emplace_back(name); }, settings);
    return names;
}

std::vector<std::string> ExpectedNames(PageSet groups) {
    std::vector<std::string> names;
    for (const ExpectedSetting& setting : kExpectedSettings)
        if (groups & setting.group) names.emplace_back(setting.name);
    return names;
}

TEST(Fields, AllGroupsTogetherHave122StoredNames) {
    EXPECT_EQ(StoredNames(page_bit::kAllPages).size(), 122U);
}

TEST(Fields, NamesAndTheirOrderAreThoseOfExistingData) {
    EXPECT_EQ(StoredNames(page_bit::kAllPages), ExpectedNames(page_bit::kAllPages));
}

TEST(Fields, EveryBitSelectsTheNamesOfItsGroup) {
    for (int bit = 0; bit < 32; ++bit) {
        const PageSet group = PageSet{1} << bit;
        EXPECT_EQ(StoredNames(group), ExpectedNames(group)) << "bit " << bit;
    }
}

TEST(Fields, GroupsWithoutStoredValuesHaveNoNames) {
    EXPECT_TRUE(StoredNames(page_bit::kCustomForms | page_bit::kProfiles).empty());
    EXPECT_TRUE(StoredNames(0xFFFE0000).empty());
}

TEST(Fields, SpellingsOfExistingDataAreKept) {
    using testing::IsSupersetOf;
    EXPECT_THAT(StoredNames(page_bit::kAllPages),
                IsSupersetOf({"Email.STMP.UseSSL", "Links.Analize", "Links.Files.Analize",
                              "Fonts.Embedd.Always", "Fonts.Embedd.Never"}));
}

TEST(Fields, VisitorGetsTheSameMemberOfEveryRecord) {
    PrinterSettings first;
    PrinterSettings second;
    first.Links.Border.Width = 11;
    second.Links.Border.Width = 22;
    std::vector<std::int32_t> widths;
    fields::kLinks(
        [&](const std::string& name, std::int32_t one, std::int32_t other) {
            if (name == "Links.Border.Width") widths = {one, other};
        },
        first, second);
    EXPECT_EQ(widths, (std::vector<std::int32_t>{11, 22}));
}

}  // namespace
}  // namespace vmk
