#include "settings/settings_key.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "settings/load_defaults.h"
#include "settings/registry_path.h"
#include "tests/settings/expected_settings.h"
#include "tests/settings/member_values.h"
#include "tests/settings/scratch_registry.h"

namespace vmk {
namespace {

using Names = std::vector<std::string>;

// Tests of whole loads and stores: the scratch key stands in for HKEY_CURRENT_USER of this process.
class SettingsKeyTest : public ScratchKeyTest {
  protected:
    void SetUp() override {
        ScratchKeyTest::SetUp();
        ASSERT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, Key()), ERROR_SUCCESS);
    }

    void TearDown() override {
        EXPECT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, nullptr), ERROR_SUCCESS);
        ScratchKeyTest::TearDown();
    }

    // A key below the root as another program sees it; empty when there is none.
    static UniqueRegistryKey Open(const std::string& subKey) {
        std::string path = kRegistryRoot + subKey;
        if (path.ends_with('\\')) path.pop_back();
        UniqueRegistryKey key;
        RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_ALL_ACCESS, key.put());
        return key;
    }

    static bool Exists(const std::string& subKey) { return static_cast<bool>(Open(subKey)); }

    // The root, below which keys are no longer to be had.
    void MakeRootVolatile() const {
        std::string path = kRegistryRoot;
        path.pop_back();
        UniqueRegistryKey key;
        ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                  KEY_ALL_ACCESS, nullptr, key.put(), nullptr),
                  ERROR_SUCCESS);
    }
};

PrinterSettings Loaded(PageSet groups, const wchar_t* subKey) {
    PrinterSettings settings = ChangedSettings();
    LoadFromRegistry(groups, subKey, settings);
    return settings;
}

// Each run of the tests has one code page and takes the suites that go with it (see CMakeLists.txt).
using WesternSettingsKey = SettingsKeyTest;
using DoubleByteSettingsKey = SettingsKeyTest;

TEST_F(SettingsKeyTest, LoadingFromAMissingKeyCreatesItAndKeepsTheRecord) {
    EXPECT_EQ(Loaded(page_bit::kAllPages, L"new"), ChangedSettings());
    const UniqueRegistryKey created = Open("new");
    ASSERT_TRUE(created);
    EXPECT_EQ(ValueCount(created.get()), 0U);
}

TEST_F(SettingsKeyTest, SecondLoadFromTheCreatedKeySetsTheLoadDefaults) {
    Loaded(page_bit::kAllPages, L"new");
    PrinterSettings expected = LoadDefaults();
    expected.CustomForms = ChangedSettings().CustomForms;
    expected.Profiles = ChangedSettings().Profiles;
    expected.Info.Extra = ChangedSettings().Info.Extra;
    expected.Save.App.Run.Path = ChangedSettings().Save.App.Run.Path;
    EXPECT_EQ(Loaded(page_bit::kAllPages, L"new"), expected);
}

TEST_F(SettingsKeyTest, SecondLoadSetsTheSelectedGroupsOnly) {
    Loaded(page_bit::kPaper, L"new");
    PrinterSettings expected = ChangedSettings();
    expected.Paper = {};
    EXPECT_EQ(Loaded(page_bit::kPaper, L"new"), expected);
}

TEST_F(SettingsKeyTest, StoringCreatesTheKeyAndItsValues) {
    StoreToRegistry(page_bit::kAllPages, L"office", PrinterSettings{});
    const UniqueRegistryKey key = Open("office");
    ASSERT_TRUE(key);
    EXPECT_EQ(ValueCount(key.get()), std::size(kExpectedSettings));
}

TEST_F(SettingsKeyTest, StoredRecordIsLoadedFromTheSameSubKeyOnly) {
    PrinterSettings settings;
    settings.Paper.Nup = 4;
    StoreToRegistry(page_bit::kPaper, L"office", settings);
    settings.Paper.Nup = 8;
    StoreToRegistry(page_bit::kPaper, L"home", settings);
    EXPECT_EQ(Loaded(page_bit::kPaper, L"office").Paper.Nup, 4);
    EXPECT_EQ(Loaded(page_bit::kPaper, L"home").Paper.Nup, 8);
}

TEST_F(SettingsKeyTest, NullAndEmptySubKeyNameTheRoot) {
    PrinterSettings settings;
    settings.Paper.Nup = 4;
    StoreToRegistry(page_bit::kPaper, nullptr, settings);
    ASSERT_TRUE(Exists(""));
    EXPECT_EQ(GetValue(Open("").get(), "Paper.Nup"), NumberValue(4));
    EXPECT_EQ(Loaded(page_bit::kPaper, L"").Paper.Nup, 4);

    settings.Paper.Nup = 8;
    StoreToRegistry(page_bit::kPaper, L"", settings);
    EXPECT_EQ(GetValue(Open("").get(), "Paper.Nup"), NumberValue(8));
    EXPECT_EQ(Loaded(page_bit::kPaper, nullptr).Paper.Nup, 8);
    EXPECT_TRUE(SubKeys(Open("").get()).empty());
}

TEST_F(SettingsKeyTest, RootIsWhereOtherProgramsExpectIt) {
    StoreToRegistry(page_bit::kPaper, L"office", PrinterSettings{});
    UniqueRegistryKey key;
    EXPECT_EQ(
        RegOpenKeyExA(HKEY_CURRENT_USER, "SOFTWARE\\Orrin Systems\\vmkctrl.PdfPrinterPreferences\\office", 0,
                      KEY_READ, key.put()),
        ERROR_SUCCESS);
}

TEST_F(SettingsKeyTest, SubKeyMayHaveSeveralLevels) {
    StoreToRegistry(page_bit::kPaper, L"printers\\first floor\\left", PrinterSettings{});
    EXPECT_TRUE(Exists("printers\\first floor\\left"));
    EXPECT_EQ(SubKeys(Open("").get()), Names{"printers"});
}

TEST_F(SettingsKeyTest, SurplusValuesStayWhenStoring) {
    StoreToRegistry(page_bit::kPaper, L"office", PrinterSettings{});
    SetText(Open("office").get(), "Colour", "blue");
    StoreToRegistry(page_bit::kAllPages, L"office", PrinterSettings{});
    EXPECT_EQ(GetValue(Open("office").get(), "Colour"), TextValue("blue"));
    EXPECT_EQ(ValueCount(Open("office").get()), std::size(kExpectedSettings) + 1U);
}

TEST_F(SettingsKeyTest, OverLongNamesAreRefusedWithoutTouchingAnything) {
    for (const std::size_t length : {256U, 300U, 16'384U, 16'385U, 40'000U, 100'000U}) {
        const std::wstring name(length, L'n');
        StoreToRegistry(page_bit::kAllPages, name.c_str(), PrinterSettings{});
        EXPECT_EQ(Loaded(page_bit::kAllPages, name.c_str()), ChangedSettings()) << length;
    }
    EXPECT_TRUE(SubKeys(Key()).empty());
}

TEST_F(SettingsKeyTest, OverLongPathsAreRefusedWithoutTouchingAnything) {
    std::wstring path;
    while (path.size() < 70'000) path += L"name\\";
    StoreToRegistry(page_bit::kAllPages, path.c_str(), PrinterSettings{});
    EXPECT_EQ(Loaded(page_bit::kAllPages, path.c_str()), ChangedSettings());
    EXPECT_TRUE(SubKeys(Key()).empty());
}

TEST_F(SettingsKeyTest, NamesInFrontOfAnOverLongOneAreNotCreated) {
    const std::wstring path = L"new\\" + std::wstring(300, L'n') + L"\\other";
    StoreToRegistry(page_bit::kAllPages, path.c_str(), PrinterSettings{});
    EXPECT_EQ(Loaded(page_bit::kAllPages, path.c_str()), ChangedSettings());
    EXPECT_TRUE(SubKeys(Key()).empty());
}

TEST_F(SettingsKeyTest, LongNamesThatTheRegistryTakesAreUsed) {
    const std::wstring name(150, L'n');
    StoreToRegistry(page_bit::kPaper, name.c_str(), PrinterSettings{});
    EXPECT_TRUE(Exists(std::string(150, 'n')));
}

TEST_F(SettingsKeyTest, NameOutsideTheCodePageIsUsedWithReplacements) {
    StoreToRegistry(page_bit::kPaper, L"\xD55C\xAE00", PrinterSettings{});
    EXPECT_EQ(SubKeys(Open("").get()), Names{"??"});
    EXPECT_EQ(Loaded(page_bit::kPaper, L"\xD55C\xAE00").Paper, PrinterSettings{}.Paper);
}

TEST_F(WesternSettingsKey, WesternNameIsUsedInItsCodePage) {
    StoreToRegistry(page_bit::kPaper, L"B\u00FCro", PrinterSettings{});
    EXPECT_EQ(SubKeys(Open("").get()), Names{"B\xFCro"});
}

TEST_F(DoubleByteSettingsKey, DoubleByteNameWhoseBytesHoldABackslashIsOneName) {
    StoreToRegistry(page_bit::kPaper, L"\u30BD\u8868", PrinterSettings{});
    EXPECT_EQ(SubKeys(Open("").get()), Names{"\x83\x5C\x95\x5C"});
}

TEST_F(SettingsKeyTest, KeyThatCannotBeOpenedLeavesRecordAndRegistryAlone) {
    MakeRootVolatile();
    ASSERT_FALSE(OpenSettingsKey(L"office", KeyAccess::kReadWrite).key);

    StoreToRegistry(page_bit::kAllPages, L"office", PrinterSettings{});
    EXPECT_FALSE(Exists("office"));
    EXPECT_EQ(Loaded(page_bit::kAllPages, L"office"), ChangedSettings());
    EXPECT_FALSE(Exists("office"));
}

TEST_F(SettingsKeyTest, OpeningTellsWhetherTheKeyIsNew) {
    const SettingsKey first = OpenSettingsKey(L"office", KeyAccess::kRead);
    EXPECT_TRUE(first.key);
    EXPECT_TRUE(first.createdNow);
    const SettingsKey second = OpenSettingsKey(L"office", KeyAccess::kReadWrite);
    EXPECT_TRUE(second.key);
    EXPECT_FALSE(second.createdNow);
}

TEST_F(SettingsKeyTest, KeyForLoadingCannotBeWritten) {
    const SettingsKey opened = OpenSettingsKey(L"office", KeyAccess::kRead);
    EXPECT_EQ(RegSetValueExA(opened.key.get(), "x", 0, REG_SZ, nullptr, 0), ERROR_ACCESS_DENIED);
}

TEST_F(SettingsKeyTest, KeyForStoringCanBeReadAndWrittenAndTakesSubKeys) {
    const SettingsKey opened = OpenSettingsKey(L"office", KeyAccess::kReadWrite);
    SetNumber(opened.key.get(), "x", 1);
    EXPECT_EQ(GetValue(opened.key.get(), "x"), NumberValue(1));
    UniqueRegistryKey below;
    EXPECT_EQ(
        RegCreateKeyExA(opened.key.get(), "below", 0, nullptr, 0, KEY_READ, nullptr, below.put(), nullptr),
        ERROR_SUCCESS);
}

TEST(SettingsKeyPath, SubKeyIsAppendedToTheRoot) {
    EXPECT_EQ(SettingsKeyPath(L""), kRegistryRoot);
    EXPECT_EQ(SettingsKeyPath(L"office"), std::string(kRegistryRoot) + "office");
    EXPECT_EQ(SettingsKeyPath(L"a\\b"), std::string(kRegistryRoot) + "a\\b");
}

TEST(SettingsKeyPath, LimitIsThatOfOneName) {
    EXPECT_TRUE(SettingsKeyPath(std::wstring(255, L'n')));
    EXPECT_FALSE(SettingsKeyPath(std::wstring(256, L'n')));
    EXPECT_TRUE(SettingsKeyPath(std::wstring(255, L'n') + L'\\' + std::wstring(255, L'n')));
    EXPECT_FALSE(SettingsKeyPath(std::wstring(255, L'n') + L'\\' + std::wstring(256, L'n')));
}

TEST(SettingsKeyPath, SubKeyOf16384CharactersIsTheLongest) {
    std::wstring longest;
    while (longest.size() < 16384) longest += std::wstring(127, L'n') + L'\\';
    EXPECT_EQ(longest.size(), 16384U);
    EXPECT_TRUE(SettingsKeyPath(longest));
    EXPECT_FALSE(SettingsKeyPath(longest + L'n'));
}

TEST(SettingsKeyPath, SubKeyOfAQuarterOfTheAddressableCharactersCountsAsNone) {
    constexpr std::size_t kLength = 0x40000000;
    // Address space only: reading one character of it would end the test.
    void* room = VirtualAlloc(nullptr, kLength * sizeof(wchar_t), MEM_RESERVE, PAGE_NOACCESS);
    ASSERT_TRUE(room);
    EXPECT_EQ(SettingsKeyPath({static_cast<const wchar_t*>(room), kLength}), kRegistryRoot);
    EXPECT_EQ(SettingsKeyPath({static_cast<const wchar_t*>(room), kLength - 1}), std::nullopt);
    VirtualFree(room, 0, MEM_RELEASE);
}

}  // namespace
}  // namespace vmk
