#include "settings/fields.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vmk {
namespace {

std::vector<std::string> StoredNames(PageSet groups) {
    PrinterSettings settings;
    std::vector<std::string> names;
    fields::Walk(
        groups, [&](const char* name, auto&) { names.emplace_back(name); }, settings);
    return names;
}

TEST(Fields, AllGroupsTogetherHave122StoredNames) {
    EXPECT_EQ(StoredNames(page_bit::kAllPages).size(), 122U);
}

TEST(Fields, GroupsWithoutStoredValuesHaveNoNames) {
    EXPECT_TRUE(StoredNames(page_bit::kCustomForms | page_bit::kProfiles).empty());
    EXPECT_TRUE(StoredNames(0xFFFE0000).empty());
}

}  // namespace
}  // namespace vmk
