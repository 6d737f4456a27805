#include "settings/registry_store.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "tests/settings/expected_settings.h"
#include "tests/settings/member_values.h"
#include "tests/settings/scratch_registry.h"

namespace vmk {
namespace {

constexpr std::size_t kMebibyte = 0x100000;

class StoreGroupsTest : public ScratchKeyTest {};

TEST_F(StoreGroupsTest, FreshRecordLeavesEveryValueOfTheRightType) {
    StoreGroups(Key(), page_bit::kAllPages, PrinterSettings{});

    EXPECT_EQ(ValueCount(Key()), std::size(kExpectedSettings));
    for (const ExpectedSetting& setting : kExpectedSettings) {
        if (setting.text) {
            const std::wstring text = setting.text;
            EXPECT_EQ(GetValue(Key(), setting.name), TextValue(std::string(text.begin(), text.end())))
                << setting.name;
        } else {
            EXPECT_EQ(GetValue(Key(), setting.name), NumberValue(static_cast<DWORD>(setting.number)))
                << setting.name;
        }
    }
}

TEST_F(StoreGroupsTest, EverySettingIsStoredUnderItsOwnName) {
    const PrinterSettings settings = ChangedSettings();
    StoreGroups(Key(), page_bit::kAllPages, settings);

    EXPECT_EQ(ValueCount(Key()), std::size(kExpectedSettings));
    const auto values = MemberValues(settings);
    for (const ExpectedSetting& setting : kExpectedSettings) {
        if (!values.contains(setting.name)) continue;  // one value for several members
        const std::wstring& value = values.at(setting.name);
        if (setting.text) {
            EXPECT_EQ(GetValue(Key(), setting.name), TextValue(std::string(value.begin(), value.end())));
        } else {
            EXPECT_EQ(GetValue(Key(), setting.name), NumberValue(static_cast<DWORD>(std::stol(value))));
        }
    }
}

TEST_F(StoreGroupsTest, OnlySelectedGroupsAreWritten) {
    for (int bit = 0; bit < 32; ++bit) {
        const PageSet group = PageSet{1} << bit;
        StoreGroups(Key(), group, PrinterSettings{});

        DWORD expected = 0;
        for (const ExpectedSetting& setting : kExpectedSettings) {
            if (setting.group != group) continue;
            ++expected;
            EXPECT_TRUE(GetValue(Key(), setting.name)) << setting.name;
            RegDeleteValueA(Key(), setting.name);
        }
        EXPECT_EQ(ValueCount(Key()), 0U) << expected << " values expected for bit " << bit;
    }
}

TEST_F(StoreGroupsTest, NothingElseInTheKeyIsTouched) {
    SetText(Key(), "Paper.Size", "A4");
    SetText(Key(), "", "default value");
    StoreGroups(Key(), page_bit::kAllPages, PrinterSettings{});
    EXPECT_EQ(GetValue(Key(), "Paper.Size"), TextValue("A4"));
    EXPECT_EQ(GetValue(Key(), ""), TextValue("default value"));
    EXPECT_EQ(ValueCount(Key()), std::size(kExpectedSettings) + 2U);
    EXPECT_TRUE(SubKeys(Key()).empty());
}

TEST_F(StoreGroupsTest, ValueOfAnotherTypeIsReplaced) {
    SetText(Key(), "Paper.Nup", "many");
    SetNumber(Key(), "Info.Author", 1);
    StoreGroups(Key(), page_bit::kPaper | page_bit::kDocumentInfo, PrinterSettings{});
    EXPECT_EQ(GetValue(Key(), "Paper.Nup"), NumberValue(1));
    EXPECT_EQ(GetValue(Key(), "Info.Author"), TextValue(""));
}

TEST_F(StoreGroupsTest, KeyOpenForReadingOnlyIsLeftAsItIs) {
    UniqueRegistryKey readOnly;
    ASSERT_EQ(RegOpenKeyExA(Key(), nullptr, 0, KEY_READ, readOnly.put()), ERROR_SUCCESS);
    StoreGroups(readOnly.get(), page_bit::kAllPages, PrinterSettings{});
    EXPECT_EQ(ValueCount(Key()), 0U);
}

TEST_F(StoreGroupsTest, RunSwitchOffStoresTheNumberZeroWhateverThePath) {
    PrinterSettings settings;
    settings.Save.App.Run = {.Use = 0, .WithoutPath = 0, .Path = L"C:\\viewer.exe"};
    StoreGroups(Key(), page_bit::kSave, settings);
    EXPECT_EQ(GetValue(Key(), "Save.App.Run"), NumberValue(0));
}

TEST_F(StoreGroupsTest, DefaultApplicationStoresTheNumberOne) {
    PrinterSettings settings;
    settings.Save.App.Run = {.Use = 1, .WithoutPath = 1, .Path = L"C:\\viewer.exe"};
    StoreGroups(Key(), page_bit::kSave, settings);
    EXPECT_EQ(GetValue(Key(), "Save.App.Run"), NumberValue(1));
}

TEST_F(StoreGroupsTest, GivenApplicationStoresItsPath) {
    PrinterSettings settings;
    settings.Save.App.Run = {.Use = 1, .WithoutPath = 0, .Path = L"C:\\viewer.exe"};
    StoreGroups(Key(), page_bit::kSave, settings);
    EXPECT_EQ(GetValue(Key(), "Save.App.Run"), TextValue("C:\\viewer.exe"));
}

TEST_F(StoreGroupsTest, DisabledSwappingStoresZeroWhateverTheThreshold) {
    PrinterSettings settings;
    settings.Optimization.SwapToDisk = {.Enabled = 0, .Megabytes = 5};
    StoreGroups(Key(), page_bit::kOptimization, settings);
    EXPECT_EQ(GetValue(Key(), "Optimization.SwapToDisk"), NumberValue(0));

    LoadGroups(Key(), page_bit::kOptimization, settings);
    EXPECT_EQ(settings.Optimization.SwapToDisk.Megabytes, 0);
}

TEST_F(StoreGroupsTest, EnabledSwappingStoresTheThreshold) {
    PrinterSettings settings;
    settings.Optimization.SwapToDisk = {.Enabled = 1, .Megabytes = 5};
    StoreGroups(Key(), page_bit::kOptimization, settings);
    EXPECT_EQ(GetValue(Key(), "Optimization.SwapToDisk"), NumberValue(5));
}

TEST_F(StoreGroupsTest, TextsOfAnyLengthAreStoredWhole) {
    PrinterSettings settings;
    for (const std::size_t length : {std::size_t{0}, std::size_t{1}, std::size_t{1021}, std::size_t{1022},
                                     std::size_t{1023}, std::size_t{1024}, std::size_t{1025}, kMebibyte}) {
        settings.Info.Title.assign(length, L'x');
        StoreGroups(Key(), page_bit::kDocumentInfo, settings);
        EXPECT_EQ(GetValue(Key(), "Info.Title"), TextValue(std::string(length, 'x'))) << length;
    }
}

class RoundTrip : public ScratchKeyTest {
  protected:
    // Stores one record and loads it into another.
    PrinterSettings Pass(const PrinterSettings& from, PrinterSettings into) const {
        StoreGroups(Key(), page_bit::kAllPages, from);
        LoadGroups(Key(), page_bit::kAllPages, into);
        return into;
    }
};

TEST_F(RoundTrip, EveryDefaultComesBack) {
    PrinterSettings into = ChangedSettings();
    // These have no value to come back from.
    into.CustomForms = into.Profiles = 0;
    into.Info.Extra.clear();
    into.Save.App.Run.Path.clear();
    EXPECT_EQ(MemberValues(Pass(PrinterSettings{}, into)), MemberValues(PrinterSettings{}));
}

TEST_F(RoundTrip, EveryChangedValueComesBack) {
    PrinterSettings changed = ChangedSettings();
    changed.CustomForms = changed.Profiles = 0;
    changed.Info.Extra.clear();
    changed.Optimization.SwapToDisk = {.Enabled = 1, .Megabytes = 7};
    EXPECT_EQ(MemberValues(Pass(changed, {})), MemberValues(changed));
}

TEST_F(RoundTrip, ApplicationComesBackInEachOfItsForms) {
    PrinterSettings settings;
    settings.Save.App.Run = {.Use = 1, .WithoutPath = 0, .Path = L"C:\\viewer.exe"};
    EXPECT_EQ(Pass(settings, {}).Save.App.Run, settings.Save.App.Run);

    settings.Save.App.Run = {.Use = 1, .WithoutPath = 1, .Path = L""};
    EXPECT_EQ(Pass(settings, {}).Save.App.Run, settings.Save.App.Run);

    settings.Save.App.Run = {.Use = 0, .WithoutPath = 1, .Path = L""};
    EXPECT_EQ(Pass(settings, {}).Save.App.Run, settings.Save.App.Run);
}

TEST_F(RoundTrip, ParametersOfTheApplicationKeepTheFileMacroAndTheEmptyText) {
    PrinterSettings settings;
    EXPECT_EQ(Pass(settings, {}).Save.App.Params, L"%f");
    settings.Save.App.Params.clear();
    EXPECT_EQ(Pass(settings, {}).Save.App.Params, L"");
}

TEST_F(RoundTrip, NegativeNumbersComeBack) {
    PrinterSettings settings;
    settings.Security.Digisig.Page = -1;
    settings.Paper.NupOrder = INT32_MIN;
    EXPECT_EQ(Pass(settings, {}).Security.Digisig.Page, -1);
    EXPECT_EQ(Pass(settings, {}).Paper.NupOrder, INT32_MIN);
}

}  // namespace
}  // namespace vmk
