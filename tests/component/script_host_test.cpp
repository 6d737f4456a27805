#include "tests/component/script_host.h"

#include <gtest/gtest.h>

#include "tests/component/class_registry.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_key.h"

namespace vmk::test {
namespace {

class ScriptHost : public testing::TestWithParam<const wchar_t*> {
  protected:
    void SetUp() override {
        WipeRegistration();
        ASSERT_EQ(LoadedModule().RegisterServer(), S_OK);
    }
    void TearDown() override { WipeRegistration(); }

    std::string Run(const std::wstring& script) const {
        return RunScript(script + GetParam(), L"\"" + m_scratch.SubKey() + L"\"");
    }

    ComApartment m_apartment;
    ScratchKey m_scratch;
};

TEST_P(ScriptHost, LoadsChoosesPagesAndStores) {
    m_scratch.SetNumber("Paper.Nup", 4);
    m_scratch.SetNumber("Compression.Graphics", 0);
    EXPECT_EQ(Run(L"preferences"), "done\n");
    EXPECT_EQ(m_scratch.Number("Paper.Nup"), 4);
    // The script has reset this group.
    EXPECT_EQ(m_scratch.Number("Compression.Graphics"), 1);
    EXPECT_EQ(m_scratch.Number("Paper.NupOrder"), 0);
}

TEST_P(ScriptHost, IsToldWhatItDidWrong) {
    // The hosts number the automation errors in their own way, but a refused call is an error in both.
    EXPECT_EQ(Run(L"mistakes"),
              "too few: refused\n"
              "too many: refused\n"
              "wrong type: refused\n"
              "no such method: refused\n"
              "done\n");
}

INSTANTIATE_TEST_SUITE_P(InBothLanguages, ScriptHost, testing::Values(L".vbs", L".js"),
                         [](const auto& each) { return each.index == 0 ? "VBScript" : "JScript"; });

}  // namespace
}  // namespace vmk::test
