#include "component/preferences.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "tests/component/fake_dialog.h"
#include "tests/component/layer_module.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_key.h"

namespace vmk::test {
namespace {

// Opens the dialog and returns the options it was given.
PreferencesDialogOptions OptionsOf(IPdfPrinterPreferences& object, LONG languageId = 0) {
    PreferencesDialogOptions seen{.language = 0x7777, .pages = 0x7777, .title = L"not set"};
    const FakeDialog dialog([&](PrinterSettings&, const PreferencesDialogOptions& options) {
        seen = options;
        return INT_PTR{IDOK};
    });
    LONG exitCode = 77;
    EXPECT_EQ(object.OpenDialog(languageId, &exitCode), S_OK);
    EXPECT_EQ(exitCode, IDOK);
    return seen;
}

// The record, as the dialog gets it.
PrinterSettings& RecordOf(IPdfPrinterPreferences& object) {
    PrinterSettings* record = nullptr;
    const FakeDialog dialog([&](PrinterSettings& settings, const PreferencesDialogOptions&) {
        record = &settings;
        return INT_PTR{IDOK};
    });
    LONG exitCode = 0;
    object.OpenDialog(0, &exitCode);
    return *record;
}

PdfPrinterDialogPage Pages(LONG bits) {
    return static_cast<PdfPrinterDialogPage>(bits);
}

TEST(Preferences, AFreshObjectListsNoPageAndHasNoTitle) {
    const auto object = MakePreferences();
    const PreferencesDialogOptions options = OptionsOf(*object);
    EXPECT_EQ(options.pages, 0U);
    EXPECT_EQ(options.title, L"");
    EXPECT_EQ(options.language, 0);
}

TEST(Preferences, EveryPageButOneCanBeChosen) {
    const auto object = MakePreferences();
    EXPECT_EQ(object->EnablePage(AllPages), S_OK);
    EXPECT_EQ(object->DisablePage(Fonts), S_OK);
    EXPECT_EQ(OptionsOf(*object).pages, ~PageSet{0x20});
}

TEST(Preferences, PagesAddUpAndDisablingAllClearsThem) {
    const auto object = MakePreferences();
    object->EnablePage(Paper);
    object->EnablePage(Save);
    object->EnablePage(Paper);
    EXPECT_EQ(OptionsOf(*object).pages, 0x801U);
    object->DisablePage(General);
    EXPECT_EQ(OptionsOf(*object).pages, 0x801U);
    object->DisablePage(AllPages);
    EXPECT_EQ(OptionsOf(*object).pages, 0U);
}

TEST(Preferences, BitsWithoutAPageAreKept) {
    const auto object = MakePreferences();
    EXPECT_EQ(object->EnablePage(Pages(0x40020000)), S_OK);
    EXPECT_EQ(OptionsOf(*object).pages, 0x40020000U);
}

TEST(Preferences, ATitleIsCutAfter255Characters) {
    const auto object = MakePreferences();
    for (const std::size_t length : {std::size_t{1}, std::size_t{254}, std::size_t{255}, std::size_t{256},
                                     std::size_t{300}, std::size_t{100000}}) {
        const std::wstring title(length, L'\u20AC');
        EXPECT_EQ(object->SetTitle(AutomationString(title).get()), S_OK);
        EXPECT_EQ(OptionsOf(*object).title, title.substr(0, 255));
    }
}

TEST(Preferences, AnEmptyOrNullTitleRestoresTheDialogsOwn) {
    const auto object = MakePreferences();
    const AutomationString title(L"Mine");
    const AutomationString empty(L"");
    object->SetTitle(title.get());
    EXPECT_EQ(object->SetTitle(empty.get()), S_OK);
    EXPECT_EQ(OptionsOf(*object).title, L"");
    object->SetTitle(title.get());
    EXPECT_EQ(object->SetTitle(nullptr), S_OK);
    EXPECT_EQ(OptionsOf(*object).title, L"");
}

TEST(Preferences, TheLanguageIsTheLowHalfOfTheNumber) {
    const auto object = MakePreferences();
    EXPECT_EQ(OptionsOf(*object, 0x0407).language, 0x0407);
    EXPECT_EQ(OptionsOf(*object, 0x7FFF0411).language, 0x0411);
    EXPECT_EQ(OptionsOf(*object, -1).language, 0xFFFF);
    EXPECT_EQ(OptionsOf(*object, 0x10000).language, 0);
}

TEST(Preferences, TheResultOfTheDialogIsTheExitCode) {
    const auto object = MakePreferences();
    for (const LONG result : {1L, 2L, -1L}) {
        const FakeDialog dialog([&](auto&, auto&) { return INT_PTR{result}; });
        LONG exitCode = 77;
        EXPECT_EQ(object->OpenDialog(0, &exitCode), S_OK);
        EXPECT_EQ(exitCode, result);
    }
}

TEST(Preferences, TheDialogEditsTheObjectsOwnRecord) {
    const auto object = MakePreferences();
    PrinterSettings& record = RecordOf(*object);
    record.Paper.Nup = 9;
    EXPECT_EQ(&RecordOf(*object), &record);
    EXPECT_EQ(RecordOf(*object).Paper.Nup, 9);
    EXPECT_EQ(object->UseDefaultValues(Paper), S_OK);
    EXPECT_EQ(record.Paper.Nup, 1);
}

TEST(Preferences, GroupsAreStoredAndLoadedUnderTheHostsKey) {
    const ScratchKey scratch;
    const AutomationString subKey(scratch.SubKey());
    const auto object = MakePreferences();
    RecordOf(*object).Paper.Nup = 6;
    EXPECT_EQ(object->StoreInRegistry(Paper, subKey.get()), S_OK);
    EXPECT_EQ(scratch.Number("Paper.Nup"), 6);
    EXPECT_FALSE(scratch.Number("Compression.Graphics"));
    RecordOf(*object).Paper.Nup = 1;
    EXPECT_EQ(object->InitFromRegistry(Paper, subKey.get()), S_OK);
    EXPECT_EQ(RecordOf(*object).Paper.Nup, 6);
}

TEST(Preferences, LoadingFromAKeyThatDoesNotExistCreatesItAndChangesNothing) {
    const ScratchKey scratch;
    const AutomationString subKey(scratch.SubKey());
    const auto object = MakePreferences();
    RecordOf(*object).Paper.Nup = 6;
    EXPECT_FALSE(scratch.Exists());
    EXPECT_EQ(object->InitFromRegistry(AllPages, subKey.get()), S_OK);
    EXPECT_TRUE(scratch.Exists());
    EXPECT_EQ(RecordOf(*object).Paper.Nup, 6);
}

TEST(Preferences, ASecondDialogIsRefusedWhileOneIsOpen) {
    const auto object = MakePreferences();
    LONG inner = 77;
    int runs = 0;
    const FakeDialog dialog([&](auto&, auto&) {
        ++runs;
        EXPECT_EQ(object->OpenDialog(0, &inner), S_OK);
        return INT_PTR{IDCANCEL};
    });
    LONG outer = 77;
    EXPECT_EQ(object->OpenDialog(0, &outer), S_OK);
    EXPECT_EQ(inner, -1);
    EXPECT_EQ(outer, IDCANCEL);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(object->OpenDialog(0, &outer), S_OK);
    EXPECT_EQ(outer, IDCANCEL);
    EXPECT_EQ(runs, 2);
}

TEST(Preferences, TwoObjectsMayHaveTheirDialogsOpenAtOnce) {
    const auto first = MakePreferences();
    const auto second = MakePreferences();
    LONG inner = 77;
    bool nested = false;
    const FakeDialog dialog([&](auto&, auto&) {
        if (!std::exchange(nested, true)) second->OpenDialog(0, &inner);
        return INT_PTR{IDOK};
    });
    LONG outer = 77;
    first->OpenDialog(0, &outer);
    EXPECT_EQ(inner, IDOK);
    EXPECT_EQ(outer, IDOK);
}

TEST(Preferences, TheHostMayLetGoOfTheObjectWhileTheDialogIsOpen) {
    auto object = MakePreferences();
    IPdfPrinterPreferences* const raw = object.get();
    const FakeDialog dialog([&](PrinterSettings& settings, auto&) {
        object.reset();
        EXPECT_EQ(LayerModule().GetLockCount(), 1);
        settings.Paper.Nup = 4;
        return INT_PTR{IDOK};
    });
    LONG exitCode = 77;
    EXPECT_EQ(raw->OpenDialog(0, &exitCode), S_OK);
    EXPECT_EQ(exitCode, IDOK);
    EXPECT_EQ(LayerModule().GetLockCount(), 0);
}

TEST(Preferences, ADialogThatRunsOutOfMemoryIsOneThatCannotBeCreated) {
    const auto object = MakePreferences();
    const FakeDialog dialog([](auto&, auto&) -> INT_PTR { throw std::bad_alloc(); });
    LONG exitCode = 77;
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(object->OpenDialog(0, &exitCode), S_OK);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_OUTOFMEMORY));
    EXPECT_EQ(exitCode, -1);
}

TEST(Preferences, NoExceptionLeavesTheObjectAndTheNextDialogOpens) {
    const auto object = MakePreferences();
    LONG exitCode = 77;
    {
        const FakeDialog dialog([](auto&, auto&) -> INT_PTR { throw std::runtime_error("broken"); });
        EXPECT_EQ(object->OpenDialog(0, &exitCode), S_OK);
        EXPECT_EQ(exitCode, -1);
    }
    EXPECT_EQ(object->OpenDialog(0, &exitCode), S_OK);
    EXPECT_EQ(exitCode, IDOK);
}

}  // namespace
}  // namespace vmk::test
