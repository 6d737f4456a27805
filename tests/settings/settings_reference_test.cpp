#include "tools/settings_reference.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "tests/settings/expected_settings.h"

namespace vmk::docs {
namespace {

TEST(SettingsReference, EverySettingIsDescribed) {
    for (const ExpectedSetting& setting : kExpectedSettings) {
        const SettingDescription* description = FindDescription(setting.name);
        ASSERT_TRUE(description) << setting.name;
        EXPECT_FALSE(description->values.empty()) << setting.name;
        EXPECT_FALSE(description->meaning.empty()) << setting.name;
    }
}

TEST(SettingsReference, NoDescriptionIsWithoutItsSetting) {
    EXPECT_EQ(std::size(kSettingDescriptions), std::size(kExpectedSettings));
}

TEST(SettingsReference, NamesEverySettingOnce) {
    const std::string reference = SettingsReference();
    for (const ExpectedSetting& setting : kExpectedSettings) {
        const std::string cell = std::string("| `") + setting.name + "` |";
        const auto first = reference.find(cell);
        ASSERT_NE(first, std::string::npos) << setting.name;
        EXPECT_EQ(reference.find(cell, first + 1), std::string::npos) << setting.name;
    }
}

TEST(SettingsReference, DocumentIsUpToDate) {
    std::ifstream file(VMK_SETTINGS_REFERENCE, std::ios::binary);
    ASSERT_TRUE(file) << VMK_SETTINGS_REFERENCE;
    const std::string document{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(document == SettingsReference())
        << "docs/settings.md is out of date: run build/native/tools/settings_reference >docs/settings.md";
}

}  // namespace
}  // namespace vmk::docs
