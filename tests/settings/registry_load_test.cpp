#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>

#include "settings/load_defaults.h"
#include "settings/registry_store.h"
#include "tests/settings/expected_settings.h"
#include "tests/settings/member_values.h"
#include "tests/settings/scratch_registry.h"

namespace vmk {
namespace {

constexpr std::size_t kMebibyte = 0x100000;

class LoadNumber : public ScratchKeyTest {
  protected:
    // The number under which 0x44332211 stood before the value was loaded.
    std::int32_t Load() const {
        PrinterSettings settings;
        settings.Compression.Color.JPEGQuality = 0x44332211;
        LoadGroups(Key(), page_bit::kCompression, settings);
        return settings.Compression.Color.JPEGQuality;
    }

    static constexpr char kName[] = "Compression.Color.JPEGQuality";
    static constexpr std::int32_t kDefault = 75;
};

TEST_F(LoadNumber, MissingValueGivesTheDefault) {
    EXPECT_EQ(Load(), kDefault);
}

TEST_F(LoadNumber, NoNumberIsCheckedOrClamped) {
    SetNumber(Key(), kName, 0xFFFFFFFE);
    EXPECT_EQ(Load(), -2);
    SetNumber(Key(), kName, 0x7FFFFFFF);
    EXPECT_EQ(Load(), 0x7FFFFFFF);
}

TEST_F(LoadNumber, FlagKeepsAnyNumberAsItWasStored) {
    SetNumber(Key(), "Compression.Text", 7);
    PrinterSettings settings;
    LoadGroups(Key(), page_bit::kCompression, settings);
    EXPECT_EQ(settings.Compression.Text, 7);
}

TEST_F(LoadNumber, TypeOfTheValueDoesNotMatter) {
    const std::string bytes("\x04\x03\x02\x01", 4);
    for (const DWORD type : std::initializer_list<DWORD>{REG_NONE, REG_BINARY, REG_DWORD,
                                                         REG_DWORD_BIG_ENDIAN, REG_QWORD, 0x1234}) {
        SetValue(Key(), kName, type, bytes);
        EXPECT_EQ(Load(), 0x01020304) << "type " << type;
    }
}

TEST_F(LoadNumber, ShortValueOverwritesTheLowBytesOnly) {
    SetValue(Key(), kName, REG_BINARY, "");
    EXPECT_EQ(Load(), 0x44332211);
    SetValue(Key(), kName, REG_BINARY, "\xAA");
    EXPECT_EQ(Load(), 0x443322AA);
    SetValue(Key(), kName, REG_BINARY, "\xAA\xBB");
    EXPECT_EQ(Load(), 0x4433BBAA);
    SetValue(Key(), kName, REG_DWORD, "\xAA\xBB\x01");
    EXPECT_EQ(Load(), 0x4401BBAA);
}

TEST_F(LoadNumber, TextOfUpToFourBytesIsReadRaw) {
    SetText(Key(), kName, "");
    EXPECT_EQ(Load(), 0x44332200);
    SetText(Key(), kName, "A");
    EXPECT_EQ(Load(), 0x44330041);
    SetText(Key(), kName, "AB");
    EXPECT_EQ(Load(), 0x44004241);
    SetText(Key(), kName, "ABC");
    EXPECT_EQ(Load(), 0x00434241);
    SetValue(Key(), kName, REG_SZ, "ABCD");
    EXPECT_EQ(Load(), 0x44434241);
}

TEST_F(LoadNumber, ValueOfMoreThanFourBytesGivesTheDefault) {
    for (const DWORD type : std::initializer_list<DWORD>{REG_NONE, REG_SZ, REG_BINARY, REG_DWORD, REG_QWORD,
                                                         REG_MULTI_SZ, REG_EXPAND_SZ}) {
        SetValue(Key(), kName, type, std::string("\1\1\1\1\0", 5));
        EXPECT_EQ(Load(), kDefault) << "type " << type;
        SetValue(Key(), kName, type, std::string(8, '1'));
        EXPECT_EQ(Load(), kDefault) << "type " << type;
        SetValue(Key(), kName, type, std::string(kMebibyte, '1'));
        EXPECT_EQ(Load(), kDefault) << "type " << type;
    }
}

class LoadText : public ScratchKeyTest {
  protected:
    std::wstring Load() const {
        PrinterSettings settings;
        settings.Email.SMTP.Address = L"before";
        LoadGroups(Key(), page_bit::kEmail, settings);
        return settings.Email.SMTP.Address;
    }

    static constexpr char kName[] = "Email.SMTP.Address";
    static constexpr wchar_t kDefault[] = L"127.0.0.1";
};

TEST_F(LoadText, MissingValueGivesTheDefault) {
    EXPECT_EQ(Load(), kDefault);
}

TEST_F(LoadText, StoredTextReplacesTheOldOne) {
    SetText(Key(), kName, "mail.example.org");
    EXPECT_EQ(Load(), L"mail.example.org");
}

TEST_F(LoadText, EmptyValueGivesAnEmptyTextNotTheDefault) {
    SetText(Key(), kName, "");
    EXPECT_EQ(Load(), L"");
    SetValue(Key(), kName, REG_SZ, "");
    EXPECT_EQ(Load(), L"");
    SetValue(Key(), kName, REG_NONE, "");
    EXPECT_EQ(Load(), L"");
}

TEST_F(LoadText, UnterminatedValueIsReadToItsEnd) {
    SetValue(Key(), kName, REG_SZ, "mail.example.org");
    EXPECT_EQ(Load(), L"mail.example.org");
    SetValue(Key(), kName, REG_BINARY, "x");
    EXPECT_EQ(Load(), L"x");
}

TEST_F(LoadText, TextEndsAtTheFirstZero) {
    using namespace std::string_literals;
    SetValue(Key(), kName, REG_SZ, "mail\0hidden\0"s);
    EXPECT_EQ(Load(), L"mail");
    SetValue(Key(), kName, REG_BINARY, "\0mail"s);
    EXPECT_EQ(Load(), L"");
    SetValue(Key(), kName, REG_MULTI_SZ, "first\0second\0\0"s);
    EXPECT_EQ(Load(), L"first");
}

TEST_F(LoadText, TypeOfTheValueDoesNotMatter) {
    for (const DWORD type :
         std::initializer_list<DWORD>{REG_NONE, REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_DWORD,
                                      REG_DWORD_BIG_ENDIAN, REG_MULTI_SZ, REG_QWORD, 0x1234}) {
        SetValue(Key(), kName, type, "%f");
        EXPECT_EQ(Load(), L"%f") << "type " << type;
    }
    SetNumber(Key(), kName, 0x00434241);
    EXPECT_EQ(Load(), L"ABC");
    SetNumber(Key(), kName, 0x44434241);
    EXPECT_EQ(Load(), L"ABCD");
}

TEST_F(LoadText, VariablesInAnExpandableTextStayAsTheyAre) {
    SetValue(Key(), kName, REG_EXPAND_SZ, TextValue("%PATH%").bytes);
    EXPECT_EQ(Load(), L"%PATH%");
}

TEST_F(LoadText, TextsOfAnyLengthAreReadWhole) {
    for (std::size_t length = 1; length < 9; ++length) {
        SetText(Key(), kName, std::string(length, 'x'));
        EXPECT_EQ(Load(), std::wstring(length, L'x'));
    }
    for (std::size_t length = 1015; length < 1035; ++length) {
        SetText(Key(), kName, std::string(length, 'x'));
        EXPECT_EQ(Load(), std::wstring(length, L'x'));
        SetValue(Key(), kName, REG_SZ, std::string(length, 'y'));
        EXPECT_EQ(Load(), std::wstring(length, L'y'));
        SetValue(Key(), kName, REG_BINARY, std::string(length, 'z'));
        EXPECT_EQ(Load(), std::wstring(length, L'z'));
    }
    for (const DWORD type : std::initializer_list<DWORD>{REG_SZ, REG_BINARY, REG_MULTI_SZ}) {
        SetValue(Key(), kName, type, std::string(kMebibyte, 'x'));
        EXPECT_EQ(Load(), std::wstring(kMebibyte, L'x')) << "type " << type;
    }
}

TEST_F(LoadText, AMebibyteOfZerosIsAnEmptyText) {
    SetValue(Key(), kName, REG_BINARY, std::string(kMebibyte, '\0'));
    EXPECT_EQ(Load(), L"");
}

class LoadRunApplication : public ScratchKeyTest {
  protected:
    RunApplication Load() const { return Load(kBefore); }
    RunApplication Load(const RunApplication& before) const {
        PrinterSettings settings;
        settings.Save.App.Run = before;
        LoadGroups(Key(), page_bit::kSave, settings);
        return settings.Save.App.Run;
    }

    static constexpr char kName[] = "Save.App.Run";
    const RunApplication kBefore{.Use = 5, .WithoutPath = 6, .Path = L"before"};
    const RunApplication kNone{.Use = 0, .WithoutPath = 1, .Path = L"before"};
    const RunApplication kDefaultApplication{.Use = 1, .WithoutPath = 1, .Path = L"before"};
};

TEST_F(LoadRunApplication, MissingValueRunsNothingAndKeepsThePath) {
    EXPECT_EQ(Load(), kNone);
}

TEST_F(LoadRunApplication, NumberZeroRunsNothing) {
    SetNumber(Key(), kName, 0);
    EXPECT_EQ(Load(), kNone);
}

TEST_F(LoadRunApplication, AnyOtherNumberRunsTheDefaultApplication) {
    for (const DWORD number : {1U, 2U, 0x100U, 0xFFFFFFFFU}) {
        SetNumber(Key(), kName, number);
        EXPECT_EQ(Load(), kDefaultApplication) << number;
    }
}

TEST_F(LoadRunApplication, NumberThatCannotBeReadRunsNothing) {
    SetValue(Key(), kName, REG_DWORD, "\1\1\1\1\1");
    EXPECT_EQ(Load(), kNone);
}

TEST_F(LoadRunApplication, ShortNumberCountsByTheBytesThatAreThere) {
    SetValue(Key(), kName, REG_DWORD, "");
    EXPECT_EQ(Load(), kNone);
    SetValue(Key(), kName, REG_DWORD, "\1");
    EXPECT_EQ(Load(), kDefaultApplication);
}

TEST_F(LoadRunApplication, TextRunsTheProgramOfThatPath) {
    SetText(Key(), kName, "C:\\Tools\\viewer.exe");
    EXPECT_EQ(Load(), (RunApplication{.Use = 1, .WithoutPath = 0, .Path = L"C:\\Tools\\viewer.exe"}));
}

TEST_F(LoadRunApplication, EmptyTextRunsAProgramWithoutAPath) {
    SetText(Key(), kName, "");
    EXPECT_EQ(Load(), (RunApplication{.Use = 1, .WithoutPath = 0, .Path = L""}));
}

TEST_F(LoadRunApplication, PathOfAMebibyteIsReadWhole) {
    SetText(Key(), kName, std::string(kMebibyte, 'p'));
    EXPECT_EQ(Load(), (RunApplication{.Use = 1, .WithoutPath = 0, .Path = std::wstring(kMebibyte, L'p')}));
}

TEST_F(LoadRunApplication, AnyOtherTypeLeavesAllThreePartsAlone) {
    for (const DWORD type : std::initializer_list<DWORD>{REG_NONE, REG_EXPAND_SZ, REG_BINARY,
                                                         REG_DWORD_BIG_ENDIAN, REG_MULTI_SZ, REG_QWORD}) {
        SetValue(Key(), kName, type, std::string("\1\0\0\0", 4));
        EXPECT_EQ(Load(), kBefore) << "type " << type;
    }
}

class LoadSwapToDisk : public ScratchKeyTest {
  protected:
    SwapToDisk Load() const {
        PrinterSettings settings;
        settings.Optimization.SwapToDisk = {.Enabled = 5, .Megabytes = 0x44332211};
        LoadGroups(Key(), page_bit::kOptimization, settings);
        return settings.Optimization.SwapToDisk;
    }

    static constexpr char kName[] = "Optimization.SwapToDisk";
};

TEST_F(LoadSwapToDisk, MissingValueSwapsFromOneMegabyte) {
    EXPECT_EQ(Load(), (SwapToDisk{.Enabled = 1, .Megabytes = 1}));
}

TEST_F(LoadSwapToDisk, NumberIsTheThresholdAndEnablesSwapping) {
    SetNumber(Key(), kName, 5);
    EXPECT_EQ(Load(), (SwapToDisk{.Enabled = 1, .Megabytes = 5}));
}

TEST_F(LoadSwapToDisk, NumberZeroDisablesSwapping) {
    SetNumber(Key(), kName, 0);
    EXPECT_EQ(Load(), (SwapToDisk{.Enabled = 0, .Megabytes = 0}));
}

TEST_F(LoadSwapToDisk, ShortValueOverwritesTheLowBytesOnly) {
    SetValue(Key(), kName, REG_BINARY, std::string("\0", 1));
    EXPECT_EQ(Load(), (SwapToDisk{.Enabled = 1, .Megabytes = 0x44332200}));
}

TEST_F(LoadSwapToDisk, LongValueGivesTheDefault) {
    SetValue(Key(), kName, REG_QWORD, std::string(8, '\0'));
    EXPECT_EQ(Load(), (SwapToDisk{.Enabled = 1, .Megabytes = 1}));
}

class LoadGroupsTest : public ScratchKeyTest {};

TEST_F(LoadGroupsTest, EmptyKeyGivesTheLoadDefaultOfEverySetting) {
    PrinterSettings settings = ChangedSettings();
    LoadGroups(Key(), page_bit::kAllPages, settings);

    // What no value stands for keeps what it was.
    const PrinterSettings before = ChangedSettings();
    PrinterSettings expected = LoadDefaults();
    expected.CustomForms = before.CustomForms;
    expected.Profiles = before.Profiles;
    expected.Info.Extra = before.Info.Extra;
    expected.Save.App.Run.Path = before.Save.App.Run.Path;
    EXPECT_EQ(MemberValues(settings), MemberValues(expected));
}

TEST_F(LoadGroupsTest, EveryValueIsReadUnderItsOwnName) {
    DWORD serial = 5000;
    for (const ExpectedSetting& setting : kExpectedSettings) {
        ++serial;
        if (setting.text) {
            SetText(Key(), setting.name, "stored " + std::to_string(serial));
        } else {
            SetNumber(Key(), setting.name, serial);
        }
    }
    PrinterSettings settings;
    LoadGroups(Key(), page_bit::kAllPages, settings);

    const auto values = MemberValues(settings);
    serial = 5000;
    for (const ExpectedSetting& setting : kExpectedSettings) {
        ++serial;
        const std::string name = setting.name;
        if (name == "Save.App.Run") {
            EXPECT_EQ(values.at(name + " (use)"), L"1");
        } else if (name == "Optimization.SwapToDisk") {
            EXPECT_EQ(values.at(name + " (megabytes)"), std::to_wstring(serial));
        } else {
            EXPECT_EQ(values.at(name), (setting.text ? L"stored " : L"") + std::to_wstring(serial)) << name;
        }
    }
}

TEST_F(LoadGroupsTest, GroupsThatAreNotSelectedKeepTheirValues) {
    const auto before = MemberValues(ChangedSettings());
    const auto defaults = MemberValues(LoadDefaults());
    for (int bit = 0; bit < 32; ++bit) {
        const PageSet group = PageSet{1} << bit;
        PrinterSettings settings = ChangedSettings();
        LoadGroups(Key(), group, settings);
        auto values = MemberValues(settings);
        for (const ExpectedSetting& setting : kExpectedSettings) {
            if (!values.contains(setting.name)) continue;
            const auto& expected = setting.group == group ? defaults : before;
            EXPECT_EQ(values.at(setting.name), expected.at(setting.name)) << setting.name << ", bit " << bit;
        }
    }
}

TEST_F(LoadGroupsTest, PartsOfASharedValueBelongToItsGroupAlone) {
    PrinterSettings settings = ChangedSettings();
    LoadGroups(Key(), page_bit::kAllPages & ~(page_bit::kSave | page_bit::kOptimization), settings);
    EXPECT_EQ(settings.Save.App.Run, ChangedSettings().Save.App.Run);
    EXPECT_EQ(settings.Optimization.SwapToDisk, ChangedSettings().Optimization.SwapToDisk);
}

TEST_F(LoadGroupsTest, LoadingWritesNothing) {
    PrinterSettings settings;
    LoadGroups(Key(), page_bit::kAllPages, settings);
    EXPECT_EQ(ValueCount(Key()), 0U);
}

}  // namespace
}  // namespace vmk
