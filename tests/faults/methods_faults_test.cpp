#include <windows.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

#include "tests/faults/opening.h"
#include "tests/settings/member_values.h"
#include "tests/support/import_faults.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_settings.h"

namespace vmk::test {
namespace {

class MethodWithAFault : public testing::Test {
  protected:
    MethodWithAFault() : m_object(m_module.CreatePreferences()), m_faults(m_module.get()) {}

    // Calls the method again and again, each time with another call of the function failing; the last time
    // none fails.
    template <typename Method, typename Check>
    void FailEachCall(const char* function, Method&& method, Check&& check) {
        SCOPED_TRACE(function);
        for (long call = 1;; ++call) {
            SCOPED_TRACE(call);
            m_faults.Fail({.function = function, .first = call});
            const HRESULT result = method();
            m_faults.Stop();
            EXPECT_EQ(result, S_OK);
            check(m_faults.HaveFailed());
            if (!m_faults.HaveFailed()) {
                EXPECT_GT(call, 1);
                return;
            }
        }
    }

    const ComApartment m_apartment;
    const LoadedModule m_module;
    const ComPointer<IPdfPrinterPreferences> m_object;
    ImportFaults m_faults;
};

// What the registry gives back of a record.
PrinterSettings AsStored(const PrinterSettings& settings) {
    const ScratchSettings key;
    key.Store(settings);
    return key.Load();
}

const std::wstring kLong(3000, L'x');  // needs memory wherever it goes

PrinterSettings Changed() {
    PrinterSettings settings = ChangedSettings();
    settings.Info.Title = kLong;
    settings.Email.Subject = kLong;
    return AsStored(settings);
}

TEST_F(MethodWithAFault, LoadLeavesTheWholeRecordAsItWas) {
    const ScratchSettings key;
    key.Store(Changed());
    const AutomationString name(key.SubKey());
    const PrinterSettings before = AsStored(PrinterSettings());
    for (const char* const function : {"memory", "MultiByteToWideChar"}) {
        Load(*m_object, before);
        FailEachCall(
            function, [&] { return m_object->InitFromRegistry(AllPages, name.get()); },
            [&](bool failed) { EXPECT_EQ(RecordOf(*m_object), failed ? before : Changed()); });
    }
}

TEST_F(MethodWithAFault, ResetLeavesTheWholeRecordAsItWas) {
    Load(*m_object, Changed());
    FailEachCall(
        "memory", [&] { return m_object->UseDefaultValues(AllPages); },
        [&](bool failed) { EXPECT_EQ(RecordOf(*m_object) == Changed(), failed); });
}

TEST_F(MethodWithAFault, StoreLeavesOutNoMoreThanTheTextThatItIsMissingFor) {
    Load(*m_object, Changed());
    const PrinterSettings before;
    const auto store = [&] {
        const ScratchSettings key;
        key.Store(before);
        const AutomationString name(key.SubKey());
        const HRESULT result = m_object->StoreInRegistry(AllPages, name.get());
        m_faults.Stop();
        const auto stored = MemberValues(key.Load());
        const auto wanted = MemberValues(Changed());
        const auto old = MemberValues(AsStored(before));
        std::set<std::string> left;  // by the names of their values, which may hold several members
        for (const auto& [setting, value] : stored) {
            if (value == wanted.at(setting)) continue;
            EXPECT_EQ(value, old.at(setting)) << setting;
            left.insert(setting.substr(0, setting.find(" (")));
        }
        // Either the key could not be opened at all, or one text is missing.
        EXPECT_TRUE(left.size() <= 1 || left.size() > wanted.size() / 2) << left.size();
        EXPECT_TRUE(left.empty() || m_faults.HaveFailed());
        return result;
    };
    for (const char* const function : {"memory", "WideCharToMultiByte"})
        FailEachCall(function, store, [](bool) {});
}

TEST_F(MethodWithAFault, TakesASubKeyThatCannotBeConvertedForNone) {
    const RootSettings root;
    const ScratchSettings key;
    const AutomationString name(key.SubKey());
    const PrinterSettings named = AsStored(PrinterSettings());
    for (const long call : {1, 2}) {
        SCOPED_TRACE(call);
        key.Store(named);
        RootSettings::Store(named);
        Load(*m_object, Changed());
        m_faults.Fail({.function = "WideCharToMultiByte", .first = call});
        EXPECT_EQ(m_object->StoreInRegistry(AllPages, name.get()), S_OK);
        m_faults.Stop();
        EXPECT_TRUE(m_faults.HaveFailed());
        EXPECT_EQ(RootSettings::Load(), Changed());
        EXPECT_EQ(key.Load(), named);

        Load(*m_object, named);
        m_faults.Fail({.function = "WideCharToMultiByte", .first = call});
        EXPECT_EQ(m_object->InitFromRegistry(AllPages, name.get()), S_OK);
        m_faults.Stop();
        EXPECT_TRUE(m_faults.HaveFailed());
        EXPECT_EQ(RecordOf(*m_object), Changed());
    }
}

TEST_F(MethodWithAFault, OpenDialogSaysThatItIsForWantOfMemory) {
    LONG answer = 0;
    m_faults.Fail({.function = "memory", .lasting = true});
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(m_object->OpenDialog(kEnglish, &answer), S_OK);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_OUTOFMEMORY});
    m_faults.Stop();
    EXPECT_EQ(answer, -1);
}

class TypeDescriptionWithAFault : public testing::Test {
  protected:
    // What has to come of it while the function fails for good, and afterwards.
    void ExpectNone(std::string_view function) {
        const auto object = m_module.CreatePreferences();
        ComPointer<ITypeInfo> info;
        std::wstring method = L"OpenDialog";
        wchar_t* names = method.data();
        DISPID found = 0;
        m_faults.Fail({.function = function, .lasting = true});
        EXPECT_TRUE(FAILED(object->GetTypeInfo(0, 0, info.put())));
        EXPECT_FALSE(info);
        EXPECT_TRUE(FAILED(object->GetIDsOfNames(IID_NULL, &names, 1, 0, &found)));
        EXPECT_EQ(found, DISPID_UNKNOWN);
        EXPECT_TRUE(m_faults.HaveFailed());
        m_faults.Stop();
        EXPECT_EQ(object->GetTypeInfo(0, 0, info.put()), S_OK);
        EXPECT_TRUE(info);
        EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &names, 1, 0, &found), S_OK);
    }

    ComApartment m_apartment;
    LoadedModule m_module;
    ImportFaults m_faults{m_module.get()};
};

TEST_F(TypeDescriptionWithAFault, IsNoneWhereTheFileOfTheModuleCannotBeFound) {
    ExpectNone("GetModuleFileNameW");
}

TEST_F(TypeDescriptionWithAFault, IsNoneWhereTheFileOfTheModuleCannotBeRead) {
    ExpectNone("LoadTypeLibEx");
}

}  // namespace
}  // namespace vmk::test
