#include "tests/support/import_faults.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/loaded_module.h"
#include "tests/support/scratch_key.h"

namespace vmk::test {
namespace {

// The registry functions are the ones whose calls are easily seen from outside.
class ImportFault : public testing::Test {
  protected:
    ImportFault() : m_object(m_module.CreatePreferences()), m_faults(m_module.get()) {}

    // How many of the two values of the Paper page a store leaves behind.
    int StoredValues() {
        const ScratchKey key;
        m_object->StoreInRegistry(Paper, AutomationString(key.SubKey()).get());
        return key.Count();
    }

    const ComApartment m_apartment;
    const LoadedModule m_module;
    const ComPointer<IPdfPrinterPreferences> m_object;
    ImportFaults m_faults;
};

TEST_F(ImportFault, HitsTheChosenCallOnly) {
    m_faults.Fail({.function = "RegSetValueExA", .first = 2});
    EXPECT_EQ(StoredValues(), 1);
    EXPECT_EQ(m_faults.Calls(), 2);
    EXPECT_TRUE(m_faults.HaveFailed());
    EXPECT_EQ(StoredValues(), 2);
}

TEST_F(ImportFault, HitsEveryCallFromTheChosenOneOnIfItLasts) {
    m_faults.Fail({.function = "RegSetValueExA", .first = 2, .lasting = true});
    EXPECT_EQ(StoredValues(), 1);
    EXPECT_EQ(StoredValues(), 0);
    m_faults.Stop();
    EXPECT_EQ(StoredValues(), 2);
}

TEST_F(ImportFault, OnlyCountsWhenTheChosenCallNeverComes) {
    m_faults.Fail({.function = "RegSetValueExA", .first = 100});
    EXPECT_EQ(StoredValues(), 2);
    EXPECT_EQ(m_faults.Calls(), 2);
    EXPECT_FALSE(m_faults.HaveFailed());
}

TEST_F(ImportFault, CountsTheCallsOfEveryFunction) {
    const long before = m_faults.CallsOf("RegSetValueExA");
    StoredValues();
    EXPECT_EQ(m_faults.CallsOf("RegSetValueExA") - before, 2);
    EXPECT_GT(m_faults.CallsOf("memory"), 0);
    EXPECT_THROW(m_faults.CallsOf("CreateFileW"), std::invalid_argument);
}

TEST_F(ImportFault, SparesOtherThreads) {
    m_faults.Fail({.function = "RegSetValueExA", .lasting = true, .thread = GetCurrentThreadId() + 4});
    EXPECT_EQ(StoredValues(), 2);
}

TEST_F(ImportFault, IsGoneWithItsObject) {
    m_faults.Fail({.function = "RegSetValueExA", .lasting = true});
    m_faults.~ImportFaults();
    EXPECT_EQ(StoredValues(), 2);
    new (&m_faults) ImportFaults(m_module.get());
}

TEST_F(ImportFault, OfAFunctionThatIsNotImportedIsRefused) {
    EXPECT_THROW(m_faults.Fail({.function = "CreateFileW"}), std::invalid_argument);
}

}  // namespace
}  // namespace vmk::test
