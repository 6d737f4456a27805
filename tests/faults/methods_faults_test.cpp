#include <windows.h>

#include <gtest/gtest.h>

#include "tests/faults/opening.h"
#include "tests/settings/member_values.h"
#include "tests/support/import_faults.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_settings.h"

namespace vmk::test {
namespace {

class MethodWithoutMemory : public testing::Test {
  protected:
    MethodWithoutMemory() : m_object(m_module.CreatePreferences()), m_faults(m_module.get()) {}

    // Calls the method again and again, each time without the memory of another call; the last time it has
    // all.
    template <typename Method, typename Check>
    void FailEachCall(Method&& method, Check&& check) {
        for (long call = 1;; ++call) {
            SCOPED_TRACE(call);
            m_faults.Fail({.function = "memory", .first = call});
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

TEST_F(MethodWithoutMemory, LoadLeavesTheWholeRecordAsItWas) {
    const ScratchSettings key;
    key.Store(Changed());
    const AutomationString name(key.SubKey());
    FailEachCall([&] { return m_object->InitFromRegistry(AllPages, name.get()); },
                 [&](bool failed) {
                     EXPECT_EQ(RecordOf(*m_object), failed ? AsStored(PrinterSettings()) : Changed());
                 });
}

TEST_F(MethodWithoutMemory, ResetLeavesTheWholeRecordAsItWas) {
    Load(*m_object, Changed());
    FailEachCall([&] { return m_object->UseDefaultValues(AllPages); },
                 [&](bool failed) { EXPECT_EQ(RecordOf(*m_object) == Changed(), failed); });
}

TEST_F(MethodWithoutMemory, StoreLeavesOutNoMoreThanTheTextThatItIsMissingFor) {
    Load(*m_object, Changed());
    const PrinterSettings before;
    FailEachCall(
        [&] {
            const ScratchSettings key;
            key.Store(before);
            const AutomationString name(key.SubKey());
            const HRESULT result = m_object->StoreInRegistry(AllPages, name.get());
            m_faults.Stop();
            const auto stored = MemberValues(key.Load());
            const auto wanted = MemberValues(Changed());
            const auto old = MemberValues(AsStored(before));
            int left = 0;
            for (const auto& [setting, value] : stored) {
                if (value == wanted.at(setting)) continue;
                EXPECT_EQ(value, old.at(setting)) << setting;
                ++left;
            }
            // Either the key could not be opened at all, or one text is missing.
            const auto all = static_cast<int>(wanted.size());
            EXPECT_TRUE(left <= 1 || left > all / 2) << left;
            EXPECT_TRUE(left == 0 || m_faults.HaveFailed());
            return result;
        },
        [](bool) {});
}

TEST(TypeDescriptionWithAFault, IsNoneWhereTheFileOfTheModuleCannotBeFound) {
    const ComApartment apartment;
    const LoadedModule module;
    const auto object = module.CreatePreferences();
    ImportFaults faults(module.get());
    faults.Fail({.function = "GetModuleFileNameW", .lasting = true});
    ComPointer<ITypeInfo> info;
    EXPECT_TRUE(FAILED(object->GetTypeInfo(0, 0, info.put())));
    EXPECT_FALSE(info);
    EXPECT_TRUE(faults.HaveFailed());
    faults.Stop();
    EXPECT_EQ(object->GetTypeInfo(0, 0, info.put()), S_OK);
    EXPECT_TRUE(info);
}

}  // namespace
}  // namespace vmk::test
