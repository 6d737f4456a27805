#include <windows.h>
// sddl.h needs windows.h before it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sddl.h>

#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "resources/ids/watermarks.h"
#include "tests/chaos/contract.h"
#include "tests/chaos/meddler.h"
#include "tests/chaos/raw_values.h"
#include "tests/chaos/visit.h"
#include "tests/settings/expected_settings.h"
#include "tests/support/effort.h"
#include "tests/support/loaded_module.h"

// What happens to the key itself while a host works with it.

namespace vmk::test {
namespace {

constexpr wchar_t kRootPath[] = L"SOFTWARE\\Orrin Systems\\vmkctrl.PdfPrinterPreferences";
constexpr wchar_t kOtherName[] = L"Tests of keys that move";

std::wstring PathOf(const ScratchKey& key) {
    return std::wstring(kRootPath) + L"\\" + key.SubKey();
}

// The settings of an undamaged key, where every value differs from the default.
class SettingsKeys : public testing::Test {
  protected:
    void SetUp() override { m_key.Set(m_values); }

    void Load() const { m_object->InitFromRegistry(AllPages, AutomationString(m_key.SubKey()).get()); }
    void Store() const { m_object->StoreInRegistry(AllPages, AutomationString(m_key.SubKey()).get()); }
    // What the object holds.
    RawValues Record() const {
        const RawKey key;
        m_object->StoreInRegistry(AllPages, AutomationString(key.SubKey()).get());
        return key.Values();
    }

    // Loads, opens the dialog with the page of watermarks, does something while it is open, unchecks the box
    // and leaves with OK.
    void EditWhile(const std::function<void()>& something) {
        Load();
        m_object->EnablePage(Watermarks);
        const Visit visit = VisitDialog(*m_object, [&](HWND dialog) {
            something();
            SendMessageW(GetDlgItem(PagesOf(dialog).at(0), IDC_WATERMARKS_PRINT), BM_CLICK, 0, 0);
        });
        EXPECT_EQ(visit.exitCode, IDOK);
        m_edited.at("Watermarks.Print") = RawNumber(0);
        EXPECT_EQ(Record(), m_edited);
    }

    // The values of the key that has the name now, which need not be the one that had it first.
    RawValues ValuesByName() const {
        const ScratchKey& key = m_key;
        RawValues values;
        for (const ExpectedSetting& setting : kExpectedSettings)
            if (const auto number = key.Number(setting.name)) {
                values[setting.name] = RawNumber(static_cast<DWORD>(*number));
            } else if (const auto text = key.Text(setting.name)) {
                values[setting.name] = RawText(*text);
            }
        return values;
    }

    void DeleteKey() const {
        EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, PathOf(m_key).c_str()), ERROR_SUCCESS);
    }

    const ComApartment m_apartment;
    const LoadedModule m_module;
    const ComPointer<IPdfPrinterPreferences> m_object = m_module.CreatePreferences();
    const RawKey m_key;
    const RawValues m_values = Stored(UndamagedSettings());
    RawValues m_edited = m_values;
};

// Lets everybody only read the key.
void MakeReadOnly(HKEY key) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;KR;;;WD)", SDDL_REVISION_1,
                                                                     &descriptor, nullptr));
    EXPECT_EQ(RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
    LocalFree(descriptor);
}

TEST_F(SettingsKeys, ThatAreReadOnlyAreLoadedAndLeftAsTheyAre) {
    MakeReadOnly(m_key.get());
    HKEY refused = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, PathOf(m_key).c_str(), 0, KEY_SET_VALUE, &refused),
              ERROR_ACCESS_DENIED);
    EditWhile([] {});
    Store();
    EXPECT_EQ(m_key.Values(), m_values);
}

TEST_F(SettingsKeys, ThatBecomeReadOnlyMeanwhileAreLeftAsTheyAre) {
    EditWhile([this] { MakeReadOnly(m_key.get()); });
    Store();
    EXPECT_EQ(m_key.Values(), m_values);
}

TEST_F(SettingsKeys, ThatAreDeletedMeanwhileAreMadeAgainWhole) {
    EditWhile([this] { DeleteKey(); });
    EXPECT_FALSE(m_key.Exists());
    Store();
    EXPECT_EQ(m_key.Count(), static_cast<int>(std::size(kExpectedSettings)));
    EXPECT_EQ(ValuesByName(), m_edited);
}

TEST_F(SettingsKeys, ThatAreReplacedMeanwhileGetEveryValueOfTheRecord) {
    EditWhile([this] {
        DeleteKey();
        m_key.Create();
        m_key.SetNumber("Watermarks.Print", 77);
        m_key.SetText("Paper.Nup", L"two");
        m_key.SetText("Somebody else's", L"value");
    });
    Store();
    EXPECT_EQ(ValuesByName(), m_edited);
    EXPECT_EQ(m_key.Text("Somebody else's"), L"value");
    EXPECT_EQ(m_key.Count(), static_cast<int>(std::size(kExpectedSettings)) + 1);
}

TEST_F(SettingsKeys, ThatAreRenamedMeanwhileKeepWhatWasStoredUnderTheOtherName) {
    EditWhile([this] {
        using Rename = LSTATUS WINAPI(HKEY, const wchar_t*, const wchar_t*);
        auto* const rename = reinterpret_cast<Rename*>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"advapi32"), "RegRenameKey")));
        ASSERT_NE(rename, nullptr);
        EXPECT_EQ(rename(HKEY_CURRENT_USER, PathOf(m_key).c_str(), kOtherName), ERROR_SUCCESS);
    });
    EXPECT_FALSE(m_key.Exists());
    Store();
    EXPECT_EQ(ValuesByName(), m_edited);
    EXPECT_EQ(m_key.Values(), m_values);  // through the handle, which went with the name
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, (std::wstring(kRootPath) + L"\\" + kOtherName).c_str()),
              ERROR_SUCCESS);
}

// Below a key that does not outlive the session none can be made that does.
TEST_F(SettingsKeys, ThatCannotBeMadeAreNeitherLoadedNorStored) {
    Load();
    DeleteKey();
    UniqueRegistryKey fleeting;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, PathOf(m_key).c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_ALL_ACCESS, nullptr, fleeting.put(), nullptr),
              ERROR_SUCCESS);
    const AutomationString below(m_key.SubKey() + L"\\Below");
    EXPECT_EQ(m_object->InitFromRegistry(AllPages, below.get()), S_OK);
    EXPECT_EQ(m_object->StoreInRegistry(AllPages, below.get()), S_OK);
    EXPECT_EQ(Record(), m_values);
    DWORD keys = 0;
    DWORD values = 0;
    EXPECT_EQ(RegQueryInfoKeyW(fleeting.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                               nullptr, nullptr, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(keys, 0U);
    EXPECT_EQ(values, 0U);
}

// One that cannot be loaded gives the default, which is none of them.
TEST_F(SettingsKeys, WithAValueThatChangesMeanwhileGiveOneOfItsStates) {
    // Longer than what is read without asking for the length, and longer still when that was asked for.
    const RawValue longer = RawText(std::wstring(1500, L'l'));
    const RawValue longest = RawText(std::wstring(40'000, L'v'));
    const RawValue states[] = {RawText(L"short"), longer, longest, RawNumber(0x00434241), longer, longest};
    std::vector<RawValue> expected;
    for (const RawValue& state : states)
        expected.push_back(Stored(Reading({{"Save.FileName", state}}, {})).at("Save.FileName"));
    m_key.Set("Save.FileName", states[0]);
    const long tries = Effort(500, 100'000);
    const Meddler meddler(
        [&](unsigned time) { m_key.Set("Save.FileName", states[time % std::size(states)]); });
    const RawKey result;
    for (long time = 0; time < tries; ++time) {
        m_object->InitFromRegistry(Save, AutomationString(m_key.SubKey()).get());
        m_object->StoreInRegistry(Save, AutomationString(result.SubKey()).get());
        ASSERT_THAT(expected, testing::Contains(result.Values().at("Save.FileName")));
    }
    PrintFigures("a value that changes while it is loaded",
                 {{"loaded and stored", tries}, {"changes", meddler.Times()}});
}

// Each number is what was stored or its default, each text likewise: nothing in between. Where the key is
// made by loading itself, all stays as it was.
TEST_F(SettingsKeys, ThatComeAndGoMeanwhileGiveStoredValuesOrDefaults) {
    const RawValues missing = Stored(Reading({}, {}));
    const long tries = Effort(100, 20'000);
    const long most = 50 * tries;  // on a machine too busy to change anything
    long gone = 0;
    long time = 0;
    Load();
    {
        const Meddler meddler([&](unsigned) {
            RegDeleteTreeW(HKEY_CURRENT_USER, PathOf(m_key).c_str());
            UniqueRegistryKey key;
            RegCreateKeyExW(HKEY_CURRENT_USER, PathOf(m_key).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                            key.put(), nullptr);
        });
        for (; time < tries || (gone == 0 && time < most); ++time) {
            Store();
            Load();
            const RawValues now = Record();
            ASSERT_EQ(now.size(), m_values.size());
            for (const auto& [name, value] : now) {
                const bool isMissing = value == missing.at(name);
                ASSERT_TRUE(isMissing || value == m_values.at(name)) << name << " " << Describe(value);
                gone += isMissing ? 1 : 0;
            }
        }
    }
    EXPECT_GT(gone, 0);
    PrintFigures("a key that comes and goes", {{"stored and loaded", time}, {"values that were gone", gone}});
}

}  // namespace
}  // namespace vmk::test
