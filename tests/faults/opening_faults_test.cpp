#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/faults/opening.h"
#include "tests/faults/refused_window.h"
#include "tests/settings/member_values.h"
#include "tests/support/counters.h"
#include "tests/support/full_use.h"
#include "tests/support/import_faults.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_settings.h"
#include "tests/support/test_font.h"

namespace vmk::test {
namespace {

// Names of fonts that this test brings along.
const std::wstring kAlways = L"Vmk Always";
const std::wstring kNever = L"Vmk Never";

PrinterSettings Loaded() {
    PrinterSettings settings = SettingsInFullUse();
    settings.Fonts.Embedd.Always = kAlways;
    settings.Fonts.Embedd.Never = kNever;
    return settings;
}

// The dialog with all its pages, opened and ended with one call of the DLL's failing.
class OpeningWithAFault : public testing::TestWithParam<Ending> {
  protected:
    OpeningWithAFault() : m_object(m_module.CreatePreferences()), m_faults(m_module.get()) {
        m_object->EnablePage(AllPages);
        Load(*m_object, m_loaded);
    }

    // How often an opening calls the function.
    long CallsOf(const std::string& function) {
        m_faults.Fail({.function = function, .first = LONG_MAX});
        OpenAndEnd(*m_object, GetParam());
        m_faults.Stop();
        return m_faults.Calls();
    }

    // The settings that are not what was loaded, with what they are now.
    std::string Changed() const {
        std::string changed;
        const auto loaded = MemberValues(m_loaded);
        for (const auto& [name, value] : MemberValues(RecordOf(*m_object))) {
            if (value == loaded.at(name)) continue;
            changed += name + "=" + testing::PrintToString(value) + " ";
        }
        return changed;
    }

    // Whatever failed, the host's thread is as it was, the dialog could be ended, and nothing was stored
    // otherwise than it had been loaded.
    void Open() {
        const std::size_t windows = CountResources().windows;
        const Opening opening = OpenAndEnd(*m_object, GetParam());
        m_faults.Stop();
        EXPECT_FALSE(opening.wasStuck);
        EXPECT_EQ(opening.violations, 0);
        const LONG ended = GetParam() == Ending::kOk ? IDOK : IDCANCEL;
        EXPECT_EQ(opening.exitCode, opening.wasShown ? ended : -1);
        EXPECT_EQ(CountResources().windows, windows);
        EXPECT_EQ(Changed(), "");
    }

    void OpenWith(const ImportFaults::Plan& plan) {
        SCOPED_TRACE(std::string(plan.function) + " fails at call " + std::to_string(plan.first) +
                     (plan.lasting ? " and ever after" : ""));
        m_faults.Fail(plan);
        Open();
        EXPECT_TRUE(m_faults.HaveFailed());
    }

    // One of so many places spread evenly over the calls. Each way of ending the dialog has places of its own
    // between those of the others.
    static long Place(long time, long times, long calls) {
        return 1 + (3 * time + static_cast<long>(GetParam())) * calls / (3 * times);
    }

    void OpenWithSomeFailing(const std::string& function, long times, bool lasting = false) {
        const long calls = CallsOf(function);
        ASSERT_GT(calls, 0);
        for (long time = 0; time < times && !HasFatalFailure(); ++time)
            OpenWith({.function = function, .first = Place(time, times, calls), .lasting = lasting});
    }

    const TestFont m_always{{.family = kAlways}};
    const TestFont m_never{{.family = kNever}};
    const PrinterSettings m_loaded = Loaded();
    const ComApartment m_apartment;
    const LoadedModule m_module;
    const ComPointer<IPdfPrinterPreferences> m_object;
    ImportFaults m_faults;
};

TEST_P(OpeningWithAFault, WithoutOneStoresWhatWasLoaded) {
    const long calls = CallsOf("memory");
    EXPECT_GT(calls, 100);
    EXPECT_EQ(Changed(), "");
}

TEST_P(OpeningWithAFault, OfMemoryIsSurvived) {
    OpenWithSomeFailing("memory", 8);
}

TEST_P(OpeningWithAFault, OfMemoryForGoodIsSurvived) {
    OpenWithSomeFailing("memory", 4, true);
}

TEST_P(OpeningWithAFault, OfAttachingIsSurvived) {
    OpenWithSomeFailing("SetWindowLongPtrW", 4);
}

TEST_P(OpeningWithAFault, OfADialogsCreationIsSurvived) {
    OpenWithSomeFailing("CreateDialogParamW", 4);
    OpenWith({.function = "DialogBoxParamW"});
}

TEST_P(OpeningWithAFault, OfAControlsCreationIsSurvived) {
    const auto countWindows = [this] {
        const RefusedWindow none(LONG_MAX);
        OpenAndEnd(*m_object, GetParam());
        return none.Count();
    };
    constexpr long kTimes = 6;
    const long windows = countWindows();
    ASSERT_GT(windows, kTimes);
    for (long time = 0; time < kTimes; ++time) {
        const long which = Place(time, kTimes, windows);
        SCOPED_TRACE("window " + std::to_string(which) + " is refused");
        const RefusedWindow refused(which);
        Open();
    }
}

TEST_P(OpeningWithAFault, OfTheWalkOverTheFontsKeepsTheStoredNames) {
    OpenWith({.function = "EnumFontFamiliesExW"});
    OpenWithSomeFailing("GetDC", 2);
}

INSTANTIATE_TEST_SUITE_P(EndedBy, OpeningWithAFault,
                         testing::Values(Ending::kOk, Ending::kCancel, Ending::kApplyThenCancel),
                         [](const auto& tested) -> std::string {
                             switch (tested.param) {
                                 case Ending::kOk:
                                     return "Ok";
                                 case Ending::kCancel:
                                     return "Cancel";
                                 default:
                                     return "ApplyThenCancel";
                             }
                         });

}  // namespace
}  // namespace vmk::test
