#include <gtest/gtest.h>

#include <map>
#include <string>
#include <type_traits>

#include "settings/load_defaults.h"
#include "settings/printer_settings.h"
#include "tests/settings/expected_settings.h"
#include "tests/settings/member_values.h"

namespace vmk {
namespace {

// The members of a fresh record by the contract.
std::map<std::string, std::wstring> ExpectedDefaults() {
    std::map<std::string, std::wstring> values;
    for (const ExpectedSetting& setting : kExpectedSettings)
        values[setting.name] = setting.text ? setting.text : std::to_wstring(setting.number);
    values.erase("Save.App.Run");
    values["Save.App.Run (use)"] = L"0";
    values["Save.App.Run (without path)"] = L"1";
    values["Save.App.Run (path)"] = L"";
    values.erase("Optimization.SwapToDisk");
    values["Optimization.SwapToDisk (enabled)"] = L"1";
    values["Optimization.SwapToDisk (megabytes)"] = L"1";
    values["(custom forms)"] = L"0";
    values["(profiles)"] = L"0";
    values["(extra document information)"] = L"";
    return values;
}

TEST(Defaults, FreshRecordHasTheDefaultOfEverySetting) {
    EXPECT_EQ(MemberValues(PrinterSettings{}), ExpectedDefaults());
}

TEST(Defaults, NumbersAndTextsAreOfTheExpectedKind) {
    std::map<std::string, bool> isText;
    for (const ExpectedSetting& setting : kExpectedSettings) isText[setting.name] = setting.text != nullptr;

    const PrinterSettings settings;
    WalkFields(
        page_bit::kAllPages,
        [&]<typename Member>(const char* name, const Member&) {
            EXPECT_EQ((std::is_same_v<Member, std::wstring>), isText.at(name)) << name;
        },
        settings);
}

TEST(Defaults, FreshRecordNeverEmbedsTheEightStandardFontsAndHasNoAlwaysList) {
    const auto fonts = PrinterSettings{}.Fonts.Embedd;
    EXPECT_EQ(fonts.Never, L"Arial;Courier;Courier New;Helvetica;Symbol;Times;Times New Roman;ZapfDingbats");
    EXPECT_EQ(fonts.Use_Never, 1);
    EXPECT_EQ(fonts.Always, L"");
    EXPECT_EQ(fonts.Use_Always, 0);
}

TEST(LoadDefaults, DifferFromAFreshRecordInTheParametersOfTheApplicationAlone) {
    EXPECT_EQ(LoadDefaults().Save.App.Params, L"");

    auto expected = ExpectedDefaults();
    expected["Save.App.Params"] = L"";
    EXPECT_EQ(MemberValues(LoadDefaults()), expected);
}

}  // namespace
}  // namespace vmk
