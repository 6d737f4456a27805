#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/faults/opening.h"
#include "tests/faults/refused_window.h"
#include "tests/settings/member_values.h"
#include "tests/support/counters.h"
#include "tests/support/effort.h"
#include "tests/support/full_use.h"
#include "tests/support/import_faults.h"
#include "tests/support/language_folder.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_settings.h"
#include "tests/support/test_font.h"

// The component's whole life with one of its calls failing: the DLL is loaded, an object made, settings
// loaded, the dialog opened in another language, walked through and ended, the settings stored, the object
// released, the DLL unloaded.

namespace vmk::test {
namespace {

using Plan = ImportFaults::Plan;
using Values = std::map<std::string, std::wstring>;

constexpr Plan kNoFailure = {.function = "memory", .first = LONG_MAX};

// Names of fonts that this test brings along.
const std::wstring kAlways = L"Vmk Always";
const std::wstring kNever = L"Vmk Never";

PrinterSettings Loaded() {
    PrinterSettings settings = SettingsInFullUse();
    settings.Fonts.Embedd.Always = kAlways;
    settings.Fonts.Embedd.Never = kNever;
    return settings;
}

// What the registry gives back of a record.
PrinterSettings AsStored(const PrinterSettings& settings) {
    const ScratchSettings key;
    key.Store(settings);
    return key.Load();
}

// The settings of a record that have the value of none of the others, with what they are.
std::string Strange(const PrinterSettings& record, const std::vector<Values>& others) {
    std::string strange;
    for (const auto& member : MemberValues(record)) {
        const bool isKnown = std::ranges::any_of(
            others, [&](const Values& values) { return values.at(member.first) == member.second; });
        if (!isKnown) strange += " " + member.first + "=" + testing::PrintToString(member.second);
    }
    return strange;
}

// What has to hold and does not.
class Complaints {
  public:
    template <typename Value>
    void ExpectSame(const char* what, const Value& is, const Value& wanted) {
        if (is == wanted) return;
        m_text << what << " is " << testing::PrintToString(is) << ", not " << testing::PrintToString(wanted)
               << "\n";
    }
    void ExpectNone(const char* what, const std::string& found) {
        if (!found.empty()) m_text << what << ": " << found << "\n";
    }

    std::string Text() const { return m_text.str(); }

  private:
    std::ostringstream m_text;
};

class WholeLife : public testing::TestWithParam<Ending> {
  protected:
    WholeLife() {
        m_loadedFrom.Store(m_loaded);
        static std::map<Ending, std::vector<Values>> withoutLoading;
        m_allowed = withoutLoading[GetParam()];
        if (m_allowed.empty()) {
            NoteRecords([](IPdfPrinterPreferences&) {});
            NoteRecords([](IPdfPrinterPreferences& object) {
                const ScratchSettings empty;
                object.InitFromRegistry(AllPages, AutomationString(empty.SubKey()).get());
            });
            withoutLoading[GetParam()] = m_allowed;
        }
        m_allowed.push_back(MemberValues(m_loaded));
    }

    void TearDown() override {
        PrintFigures("lives with a failing call", {{"tried", static_cast<double>(m_lives)},
                                                   {"failed calls", static_cast<double>(m_failed)}});
    }

    // Lives once with the failure. Answers what does not hold though it has to whatever fails: empty when the
    // component has survived.
    std::string Live(const Plan& plan) {
        Complaints complaints;
        ++m_lives;
        {
            const LoadedModule module;
            ImportFaults faults(module.get());
            faults.Fail(plan);
            Use(module, faults, plan, complaints);
            faults.Stop();
            for (const std::string& function : faults.Functions())
                m_calls[function] = faults.CallsOf(function);
            m_calls["memory"] = faults.CallsOf("memory");
            if (faults.HaveFailed()) ++m_failed;
            complaints.ExpectSame("DllCanUnloadNow", module.CanUnloadNow(), S_OK);
        }
        complaints.ExpectSame("the module", GetModuleHandleW(L"vmkctrl.dll"), HMODULE{});
        return complaints.Text();
    }

    // All of so many calls, or in a short run some of them, spread evenly. Each way of ending the dialog has
    // places of its own between those of the others.
    static std::vector<long> Places(long calls, long sample) {
        const long times = std::min(Effort(sample, calls), calls);
        std::vector<long> places;
        for (long time = 0; time < times; ++time)
            places.push_back(times == calls
                                 ? time + 1
                                 : 1 + (3 * time + static_cast<long>(GetParam())) * calls / (3 * times));
        return places;
    }

    // What VMK_LIFE chooses: "memory" all lives without memory, "memory:12" that of which the twelfth call
    // fails, "memory:12+" that of which all fail from there on. Failures are reported by these names.
    struct Choice {
        std::string_view function;  // empty: all of them
        long place = 0;             // 0: all of them
        bool lasting = false;
    };

    static Choice ChosenLife() {
        const char* const life = std::getenv("VMK_LIFE");
        if (!life) return {};
        const std::string_view name = life;
        const std::size_t colon = name.find(':');
        if (colon == name.npos) return {.function = name};
        return {.function = name.substr(0, colon),
                .place = std::atol(life + colon + 1),
                .lasting = name.ends_with('+')};
    }

    // How often an undisturbed life calls each function.
    const std::map<std::string, long>& AllCalls() {
        static std::map<Ending, std::map<std::string, long>> calls;
        if (!calls.contains(GetParam())) {
            EXPECT_EQ(Live(kNoFailure), "");
            calls[GetParam()] = m_calls;
        }
        return calls[GetParam()];
    }

    // Lives with one call of each function failing, and with all from that one on, at each of those places.
    // In a short run without a sample each function fails in one way, at one place and for one ending.
    void FailAt(std::initializer_list<const char*> functions, long sample = 0) {
        const Choice choice = ChosenLife();
        int turn = static_cast<int>(GetParam());
        for (const char* const function : functions) {
            const long calls = AllCalls().at(function);
            ASSERT_GT(calls, 0) << function;
            ++turn;
            if (!choice.function.empty() && choice.function != function) continue;
            if (choice.place > 0) {
                Fail(function, choice.place, choice.lasting);
            } else if (IsLongRun() || sample > 0) {
                for (const long place : Places(calls, sample)) {
                    Fail(function, place, false);
                    Fail(function, place, true);
                }
            } else if (turn % 3 == 0) {
                Fail(function, Places(calls, 1).front(), turn % 2 == 0);
            }
        }
    }

    void Fail(const char* function, long place, bool lasting) {
        EXPECT_EQ(Live({.function = function, .first = place, .lasting = lasting}), "")
            << function << " fails at call " << place << (lasting ? " and ever after" : "") << ": "
            << (IsLongRun() ? "VMK_SOAK=1 " : "") << "VMK_LIFE=" << function << ":" << place
            << (lasting ? "+" : "");
    }

    const PrinterSettings m_loaded = Loaded();
    std::vector<Values> m_allowed;        // each setting has the value of one of these at the end
    std::map<std::string, long> m_calls;  // of each function in the last life

  private:
    // What a record is where loading finds nothing, before the dialog and after it.
    void NoteRecords(void (*load)(IPdfPrinterPreferences&)) {
        const LoadedModule module;
        const auto object = module.CreatePreferences();
        load(*object);
        m_allowed.push_back(MemberValues(RecordOf(*object)));
        object->EnablePage(AllPages);
        OpenAndEnd(*object, GetParam());
        m_allowed.push_back(MemberValues(RecordOf(*object)));
    }

    void Use(const LoadedModule& module, ImportFaults& faults, const Plan& plan, Complaints& complaints) {
        const std::size_t windows = CountResources().windows;
        const long blocks = ImportFaults::Blocks();
        {
            const auto object = module.CreatePreferences();
            if (!object) return;  // as a host is told
            UseObject(*object, faults, plan, complaints);
        }
        complaints.ExpectSame("the number of blocks", ImportFaults::Blocks(), blocks);
        complaints.ExpectSame("the number of windows", CountResources().windows, windows);
    }

    void UseObject(IPdfPrinterPreferences& object, ImportFaults& faults, const Plan& plan,
                   Complaints& complaints) {
        const ScratchSettings key;
        key.Store(m_stored);
        // A sub-key that cannot be converted is taken for the root.
        RootSettings::Store(m_loaded);
        complaints.ExpectSame("InitFromRegistry", object.InitFromRegistry(AllPages, m_loadedName.get()),
                              S_OK);
        complaints.ExpectSame("EnablePage", object.EnablePage(AllPages), S_OK);
        const Opening opening =
            OpenAndEnd(object, GetParam(), IsLongRun() ? WalkThrough : OpenWhatOpens, kGerman);
        complaints.ExpectSame("StoreInRegistry",
                              object.StoreInRegistry(AllPages, AutomationString(key.SubKey()).get()), S_OK);
        faults.Stop();

        complaints.ExpectSame("whether the dialog was stuck", opening.wasStuck, false);
        complaints.ExpectSame("the number of access violations", opening.violations, 0L);
        complaints.ExpectNone("an access violation", opening.whereViolated);
        complaints.ExpectSame("a dialog of somebody else's", opening.unexpected, std::wstring());
        if (!IsBeyondHelp(opening.hostChanges, plan))
            complaints.ExpectNone("changed for the host", opening.hostChanges);
        const LONG ended = GetParam() == Ending::kOk ? IDOK : IDCANCEL;
        complaints.ExpectSame("the exit code", opening.exitCode, opening.wasShown ? ended : -1);

        const PrinterSettings record = RecordOf(object);
        complaints.ExpectNone("in the record", Strange(record, m_allowed));
        complaints.ExpectNone("in the registry",
                              Strange(key.Load(), {MemberValues(record), MemberValues(m_stored)}));
    }

    // What nobody can put right: the way back into the host's folder is barred.
    static bool IsBeyondHelp(const std::string& changes, const Plan& plan) {
        return plan.function == "SetCurrentDirectoryW" && plan.first == 2 &&
               changes.starts_with("current folder: ") && std::ranges::count(changes, '\n') == 1;
    }

    const TestFont m_always{{.family = kAlways}};
    const TestFont m_never{{.family = kNever}};
    const LanguageFolder m_german{{{L"OK", L"Gut"}, {L"Cancel", L"Abbrechen"}, {L"Watermarks", L"Wasser"}}};
    const PrinterSettings m_stored = AsStored(ChangedSettings());  // what stands in the registry before
    const ScratchSettings m_loadedFrom;
    const RootSettings m_root;
    const AutomationString m_loadedName{m_loadedFrom.SubKey()};
    const ComApartment m_apartment;
    long m_lives = 0;
    long m_failed = 0;
};

TEST_P(WholeLife, WithoutAFailureKeepsWhatWasLoaded) {
    m_allowed = {MemberValues(m_loaded)};
    EXPECT_EQ(Live(kNoFailure), "");
    EXPECT_GT(m_calls.at("memory"), 500);
    EXPECT_EQ(m_calls.at("DialogBoxParamW"), 2) << "the mail server's dialog";
    EXPECT_EQ(m_calls.at("TrackPopupMenu"), 1);
}

// What no system does stands for faults of the component.
TEST_P(WholeLife, ShowsATextThatIsLostAndABlockThatIsLeft) {
    if (GetParam() == Ending::kOk) {
        EXPECT_THAT(Live({.function = "SetWindowTextW", .lasting = true, .pretends = true}),
                    testing::HasSubstr(" Email.SMTP.Address=L\"\""));
    }
    EXPECT_THAT(Live({.function = "free", .first = 400, .pretends = true}),
                testing::HasSubstr("the number of blocks is "));
}

TEST_P(WholeLife, IsSurvivedWithoutMemory) {
    FailAt({"memory"}, 2);
}

TEST_P(WholeLife, IsSurvivedWithoutTheRegistry) {
    FailAt({"RegCreateKeyExA", "RegOpenKeyExA", "RegQueryValueExA", "RegSetValueExA"});
}

TEST_P(WholeLife, IsSurvivedWithoutWindows) {
    FailAt({"CreateDialogParamW", "DialogBoxParamW", "SetWindowLongPtrW", "SetWindowTextW"});
}

TEST_P(WholeLife, IsSurvivedWithoutAControl) {
    const RefusedWindow none(LONG_MAX);
    Live(kNoFailure);
    for (const long which : Places(none.Count(), 1)) {
        const RefusedWindow refused(which);
        EXPECT_EQ(Live(kNoFailure), "") << "window " << which << " is refused";
    }
}

TEST_P(WholeLife, IsSurvivedWithoutPicturesMenusAndFonts) {
    FailAt({"ImageList_LoadImageW", "CreateCompatibleDC", "CreateCompatibleBitmap", "CreateSolidBrush",
            "LoadMenuW", "GetMenuItemInfoW", "SetMenuItemInfoW", "TrackPopupMenu", "GetDC",
            "GetTextExtentPoint32W", "MapDialogRect", "MapWindowPoints", "SetWindowPos",
            "CreateFontIndirectW", "EnumFontFamiliesExW", "GetOutlineTextMetricsW"});
}

TEST_P(WholeLife, IsSurvivedWithoutStyleFoldersAndLibraries) {
    FailAt({"CreateActCtxW", "ActivateActCtx", "GetCurrentDirectoryW", "SetCurrentDirectoryW",
            "GetModuleFileNameW", "GetModuleHandleW", "GetProcAddress"});
}

TEST_P(WholeLife, IsSurvivedWithoutLanguageFiles) {
    FailAt({"FindFirstFileA", "FindNextFileA", "CreateFileA", "GetFileSizeEx", "ReadFile",
            "MultiByteToWideChar", "WideCharToMultiByte"});
}

INSTANTIATE_TEST_SUITE_P(EndedBy, WholeLife,
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
