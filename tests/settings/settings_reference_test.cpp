#include "tools/settings_reference.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "tests/settings/expected_settings.h"

namespace vmk::docs {
namespace {

TEST(SettingsReference, EverySettingIsDescribed) {
    for (const ExpectedSetting& setting : kExpectedSettings) {
        const SettingDescription* description = FindDescription(setting.name);
        ASSERT_TRUE(description) << setting.name;
        EXPECT_FALSE(description->meaning.empty()) << setting.name;
    }
}

// What numbers may be is told elsewhere; one setting is a number or a text.
TEST(SettingsReference, TextsAloneAreDescribedByWhatTheyMayBe) {
    for (const ExpectedSetting& setting : kExpectedSettings) {
        const SettingDescription* description = FindDescription(setting.name);
        ASSERT_TRUE(description) << setting.name;
        const bool mayBeText = setting.text || std::string_view("Save.App.Run") == setting.name;
        EXPECT_EQ(description->texts.empty(), !mayBeText) << setting.name;
    }
}

// The fourth cell of the setting's row.
std::string ValuesOf(std::string_view name) {
    std::istringstream lines(SettingsReference());
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("| `" + std::string(name) + "` |")) continue;
        std::istringstream cells(line);
        std::string cell;
        for (int count = 0; count < 5; ++count) std::getline(cells, cell, '|');
        return cell;
    }
    return "(no row)";
}

TEST(SettingsReference, EverySettingHasItsValues) {
    for (const ExpectedSetting& setting : kExpectedSettings)
        EXPECT_GT(ValuesOf(setting.name).size(), std::size("  ")) << setting.name;
}

TEST(SettingsReference, TellsChoicesByNumberAndText) {
    EXPECT_EQ(ValuesOf("Convert.Color.To"), " 0 None, 1 Grayscale, 2 Monochrome ");
    EXPECT_EQ(ValuesOf("Security.Use"), " 0 Off, 1 On ");
}

TEST(SettingsReference, LeavesOutTheNumberThatBeginsTheText) {
    EXPECT_EQ(ValuesOf("Paper.Nup"), " 1 page, 2 pages, 4 pages, 8 pages, 9 pages, 16 pages ");
}

TEST(SettingsReference, LeavesOutTheBlankThatTellsOneTextFromAnother) {
    EXPECT_THAT(ValuesOf("Email.Type"), testing::StartsWith(" 0 None, 1 Launch"));
}

TEST(SettingsReference, TellsRangesWithTheirUnit) {
    EXPECT_EQ(ValuesOf("Compression.Color.JPEGQuality"), " 1 to 100 percent ");
    EXPECT_EQ(ValuesOf("Save.AutoNumber.Digits"), " 1 to 6 ");
    EXPECT_EQ(ValuesOf("Save.Type"), " any number ");
}

TEST(SettingsReference, TellsWhatIsSpecialBesideARange) {
    EXPECT_EQ(ValuesOf("Optimization.SwapToDisk"), " 1 to 8 megabytes, 0 Never ");
    EXPECT_EQ(ValuesOf("Security.Digisig.Page"), " -1 to 2147483647, -1 Last Page ");
}

TEST(SettingsReference, TellsNumbersAndTextsOfWhatMayBeEither) {
    EXPECT_EQ(ValuesOf("Save.App.Run"),
              " 0 None, 1 Default Application for PDF files; text: path of the application ");
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
