#include <windows.h>

#include <gtest/gtest.h>

#include <string_view>

#include "resources/ids/links.h"
#include "resources/ids/main.h"
#include "resources/ids/overlay.h"
#include "tests/faults/opening.h"
#include "tests/support/import_faults.h"
#include "tests/support/loaded_module.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

struct SystemDialog {
    PdfPrinterDialogPage page;
    int button;  // that opens it
};

class MissingSystemDialog : public testing::TestWithParam<SystemDialog> {
  protected:
    // Has the button pressed while a call of the function fails.
    Opening PressWithout(std::string_view function, long call) {
        m_object->DisablePage(AllPages);
        m_object->EnablePage(GetParam().page);
        return OpenAndEnd(*m_object, Ending::kCancel, [&](HWND dialog) {
            m_faults.Fail({.function = function, .first = call});
            SendMessageW(FindVisibleControl(dialog, GetParam().button), BM_CLICK, 0, 0);
            m_faults.Stop();
            m_isChanged = IsWindowEnabled(GetDlgItem(dialog, IDC_MAIN_APPLY)) != FALSE;
        });
    }

    void ExpectNothingWithout(std::string_view function, long call) {
        const Opening opening = PressWithout(function, call);
        EXPECT_TRUE(m_faults.HaveFailed());
        EXPECT_EQ(opening.violations, 0) << call << ": " << opening.whereViolated;
        EXPECT_EQ(opening.unexpected, L"") << call;
        EXPECT_FALSE(m_isChanged) << call;
    }

    const ComApartment m_apartment;
    const LoadedModule m_module;
    const ComPointer<IPdfPrinterPreferences> m_object = m_module.CreatePreferences();
    ImportFaults m_faults{m_module.get()};
    bool m_isChanged = false;
};

TEST_P(MissingSystemDialog, IsNotOpenedWhereItsLibraryIsMissing) {
    ExpectNothingWithout("LoadLibraryExW", 1);
}

TEST_P(MissingSystemDialog, IsNotOpenedWhereOneOfItsFunctionsIsMissing) {
    const Opening undisturbed = PressWithout("GetProcAddress", LONG_MAX);
    EXPECT_NE(undisturbed.unexpected, L"");  // whatever stands over the main dialog is the system's
    const long functions = m_faults.Calls();
    ASSERT_GT(functions, 0);
    for (long function = 1; function <= functions; ++function)
        ExpectNothingWithout("GetProcAddress", function);
}

INSTANTIATE_TEST_SUITE_P(EveryKind, MissingSystemDialog,
                         testing::Values(SystemDialog{Overlay, IDC_OVERLAY_BROWSE},
                                         SystemDialog{Links, IDC_LINKS_COLOR}));

}  // namespace
}  // namespace vmk::test
