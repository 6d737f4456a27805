#include "resources/ids/security.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/language_folder.h"
#include "tests/support/live_dialog.h"
#include "tests/support/loaded_module.h"
#include "tests/support/wait.h"

namespace vmk::test {
namespace {

const std::wstring k40Text = L"40-bit RC4 (Acrobat 3.x, 4.x)";
const std::wstring k128Text = L"128-bit RC4 (Acrobat 5.x and above)";

const std::vector<UINT> kDependents = {
    IDC_SECURITY_PASSWORDS_GROUP,      IDC_SECURITY_USER_PASSWORD_LABEL,
    IDC_SECURITY_OWNER_PASSWORD_LABEL, IDC_SECURITY_PERMISSIONS_GROUP,
    IDC_SECURITY_LEVEL_LABEL,          IDC_SECURITY_USE_USER_PASSWORD,
    IDC_SECURITY_USER_PASSWORD,        IDC_SECURITY_USE_OWNER_PASSWORD,
    IDC_SECURITY_OWNER_PASSWORD,       IDC_SECURITY_LEVEL,
};
const std::vector<UINT> kUserPassword = {IDC_SECURITY_USER_PASSWORD_LABEL, IDC_SECURITY_USER_PASSWORD};
const std::vector<UINT> kOwnerPassword = {IDC_SECURITY_OWNER_PASSWORD_LABEL, IDC_SECURITY_OWNER_PASSWORD};

// The Security page of a dialog of its own, opened on a record.
struct OpenPage {
    explicit OpenPage(const PrinterSettings& record = {}, LANGID language = 0x0409) {
        settings.Store(record);
        dialog = std::make_unique<LiveDialog>(
            LiveDialog::Options{.pages = page_bit::kSecurity, .language = language, .settings = &settings});
        page = dialog->VisiblePage();
        for (HWND child = GetWindow(page.Control(IDC_SECURITY_PANELS), GW_CHILD); child;
             child = GetWindow(child, GW_HWNDNEXT))
            (GetDlgItem(child, IDC_SECURITY_40_PRINTING) ? panel40 : panel128) = LiveWindow(child);
    }

    // What of the permissions is on screen.
    std::string VisiblePanels() const {
        std::string visible;
        if (IsWindowVisible(panel40.Handle())) visible += "40";
        if (IsWindowVisible(panel128.Handle())) visible += "128";
        return visible;
    }

    ScratchSettings settings;
    std::unique_ptr<LiveDialog> dialog;
    LiveWindow page;
    LiveWindow panel40;
    LiveWindow panel128;
};

PrinterSettings Secured(std::int32_t level = 128) {
    PrinterSettings record;
    record.Security.Use = 1;
    record.Security.Level = level;
    return record;
}

TEST(SecurityPage, WithoutSecurityEverythingElseIsDisabledAndNoPermissionsAreShown) {
    for (const std::int32_t level : {40, 128}) {
        PrinterSettings record = Secured(level);
        record.Security.Use = 0;
        record.Security.UserPwd = L"user";
        const OpenPage open(record);
        EXPECT_FALSE(open.page.IsChecked(IDC_SECURITY_USE));
        EXPECT_TRUE(open.page.AreDisabled(kDependents));
        EXPECT_FALSE(open.page.IsShown(IDC_SECURITY_PANELS));
        EXPECT_EQ(open.VisiblePanels(), "");
        EXPECT_TRUE(open.page.IsChecked(IDC_SECURITY_USE_USER_PASSWORD));
        EXPECT_FALSE(open.page.IsChecked(IDC_SECURITY_USE_OWNER_PASSWORD));

        open.page.Click(IDC_SECURITY_USE);
        EXPECT_EQ(open.VisiblePanels(), std::to_string(level));
        EXPECT_TRUE(open.page.AreEnabled(kUserPassword));
        EXPECT_TRUE(open.page.AreDisabled(kOwnerPassword));
    }
}

TEST(SecurityPage, AStoredPasswordChecksItsBoxAndEnablesItsEdit) {
    for (const bool user : {false, true}) {
        for (const bool owner : {false, true}) {
            PrinterSettings record = Secured();
            if (user) record.Security.UserPwd = L"user";
            if (owner) record.Security.OwnerPwd = L"owner";
            const OpenPage open(record);
            EXPECT_EQ(open.page.IsChecked(IDC_SECURITY_USE_USER_PASSWORD), user);
            EXPECT_EQ(open.page.IsChecked(IDC_SECURITY_USE_OWNER_PASSWORD), owner);
            EXPECT_EQ(open.page.AreEnabled(kUserPassword), user);
            EXPECT_EQ(open.page.AreDisabled(kUserPassword), !user);
            EXPECT_EQ(open.page.AreEnabled(kOwnerPassword), owner);
            EXPECT_EQ(open.page.AreDisabled(kOwnerPassword), !owner);
            EXPECT_EQ(open.page.Text(IDC_SECURITY_USER_PASSWORD), user ? L"user" : L"");
            EXPECT_EQ(open.page.Text(IDC_SECURITY_OWNER_PASSWORD), owner ? L"owner" : L"");
        }
    }
}

TEST(SecurityPage, AnyStoredNumberButZeroIsSecurity) {
    PrinterSettings record = Secured();
    record.Security.Use = 7;
    const OpenPage open(record);
    EXPECT_TRUE(open.page.IsChecked(IDC_SECURITY_USE));
    EXPECT_EQ(open.VisiblePanels(), "128");
}

TEST(SecurityPage, SecurityOffHidesThePermissionsAndOnBringsTheSamePanelBack) {
    const OpenPage open(Secured(40));
    open.page.Click(IDC_SECURITY_USE);
    EXPECT_TRUE(open.page.AreDisabled(kDependents));
    EXPECT_EQ(open.VisiblePanels(), "");
    EXPECT_TRUE(open.dialog->IsApplyEnabled());
    open.dialog->Apply();
    open.page.Click(IDC_SECURITY_USE);
    EXPECT_EQ(open.VisiblePanels(), "40");
    EXPECT_TRUE(open.dialog->IsApplyEnabled());
}

TEST(SecurityPage, ThePasswordBoxesEnableTheirEditsAndApply) {
    for (const auto& [box, dependents] :
         {std::pair<UINT, std::vector<UINT>>(IDC_SECURITY_USE_USER_PASSWORD, kUserPassword),
          std::pair<UINT, std::vector<UINT>>(IDC_SECURITY_USE_OWNER_PASSWORD, kOwnerPassword)}) {
        const OpenPage open(Secured());
        open.page.Click(box);
        EXPECT_TRUE(open.page.AreEnabled(dependents));
        EXPECT_TRUE(open.dialog->IsApplyEnabled());
        open.page.Click(box);
        EXPECT_TRUE(open.page.AreDisabled(dependents));
    }
}

TEST(SecurityPage, TheLevelSwapsThePanelsButDoesNotEnableApply) {
    const OpenPage open(Secured());
    EXPECT_EQ(open.page.Items(IDC_SECURITY_LEVEL), (std::vector{k40Text, k128Text}));
    EXPECT_EQ(open.page.Selected(IDC_SECURITY_LEVEL), k128Text);
    ASSERT_TRUE(open.page.Choose(IDC_SECURITY_LEVEL, k40Text));
    EXPECT_EQ(open.VisiblePanels(), "40");
    ASSERT_TRUE(open.page.Choose(IDC_SECURITY_LEVEL, k128Text));
    EXPECT_EQ(open.VisiblePanels(), "128");
    EXPECT_FALSE(open.dialog->IsApplyEnabled());
}

TEST(SecurityPage, TheLevelAloneIsNotStored) {
    const OpenPage open(Secured());
    open.page.Choose(IDC_SECURITY_LEVEL, k40Text);
    EXPECT_EQ(open.dialog->Ok(), 1);
    EXPECT_EQ(open.dialog->Record(), Secured());
}

TEST(SecurityPage, TheLevelIsStoredTogetherWithAnotherChange) {
    for (const std::int32_t level : {40, 128}) {
        const OpenPage open(Secured(168 - level));
        open.page.Choose(IDC_SECURITY_LEVEL, level == 40 ? k40Text : k128Text);
        open.page.Click(IDC_SECURITY_USE_USER_PASSWORD);
        open.dialog->Apply();
        EXPECT_EQ(open.dialog->Record(), Secured(level));
    }
}

TEST(SecurityPage, AnUnknownLevelSelectsNothingAndShowsThe128BitPermissions) {
    const OpenPage open(Secured(56));
    EXPECT_EQ(open.page.Selected(IDC_SECURITY_LEVEL), L"");
    EXPECT_EQ(open.VisiblePanels(), "128");
    open.page.Click(IDC_SECURITY_USE);
    open.page.Click(IDC_SECURITY_USE);
    EXPECT_EQ(open.VisiblePanels(), "128");
    open.dialog->Apply();
    EXPECT_EQ(open.dialog->Record().Security.Level, -1);
}

TEST(SecurityPage, AMessageWithoutSelectionLeavesThePanelsAlone) {
    const OpenPage open(Secured(40));
    SendMessageW(open.page.Control(IDC_SECURITY_LEVEL), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    SendMessageW(open.page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_SECURITY_LEVEL, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(open.page.Control(IDC_SECURITY_LEVEL)));
    EXPECT_EQ(open.VisiblePanels(), "40");
}

TEST(SecurityPage, PasswordsAreStoredWhole) {
    const OpenPage open(Secured());
    const std::wstring longPassword(5000, L'p');
    open.page.Click(IDC_SECURITY_USE_USER_PASSWORD);
    open.page.Click(IDC_SECURITY_USE_OWNER_PASSWORD);
    open.page.EnterText(IDC_SECURITY_USER_PASSWORD, L"open sesame");
    open.page.EnterText(IDC_SECURITY_OWNER_PASSWORD, longPassword);
    open.dialog->Apply();
    const PrinterSettings record = open.dialog->Record();
    EXPECT_EQ(record.Security.UserPwd, L"open sesame");
    EXPECT_EQ(record.Security.OwnerPwd, longPassword);
}

TEST(SecurityPage, APasswordThatIsNoLongerRequiredIsKept) {
    const OpenPage open(Secured());
    open.page.Click(IDC_SECURITY_USE_USER_PASSWORD);
    open.page.EnterText(IDC_SECURITY_USER_PASSWORD, L"secret");
    open.page.Click(IDC_SECURITY_USE_USER_PASSWORD);
    EXPECT_EQ(open.dialog->Ok(), 1);
    EXPECT_EQ(open.dialog->Record().Security.UserPwd, L"secret");
}

TEST(SecurityPage, ARequiredPasswordMayBeEmpty) {
    const OpenPage open(Secured());
    open.page.Click(IDC_SECURITY_USE_OWNER_PASSWORD);
    open.dialog->Apply();
    EXPECT_EQ(open.dialog->Record(), Secured());
    EXPECT_TRUE(open.page.IsChecked(IDC_SECURITY_USE_OWNER_PASSWORD));
}

TEST(SecurityPage, PasswordsShowAsDots) {
    const OpenPage open(Secured());
    for (const UINT id : std::vector<UINT>{IDC_SECURITY_USER_PASSWORD, IDC_SECURITY_OWNER_PASSWORD}) {
        EXPECT_TRUE(GetWindowLongW(open.page.Control(id), GWL_STYLE) & ES_PASSWORD);
        EXPECT_NE(SendMessageW(open.page.Control(id), EM_GETPASSWORDCHAR, 0, 0), 0);
    }
}

TEST(SecurityPage, EachPermissionFlagIsShownAndStoredOnItsOwn) {
    using Security = PrinterSettings::SecurityGroup;
    const struct {
        UINT id;
        std::int32_t& (*field)(Security&);
    } rows[] = {
        {IDC_SECURITY_40_PRINTING, [](Security& s) -> std::int32_t& { return s.Bits40.AllowPrinting; }},
        {IDC_SECURITY_40_CHANGING, [](Security& s) -> std::int32_t& { return s.Bits40.AllowChanging; }},
        {IDC_SECURITY_40_COPYING, [](Security& s) -> std::int32_t& { return s.Bits40.AllowCopying; }},
        {IDC_SECURITY_40_COMMENTS, [](Security& s) -> std::int32_t& { return s.Bits40.AllowComments; }},
        {IDC_SECURITY_128_ACCESS, [](Security& s) -> std::int32_t& { return s.Bits128.ContentAccess; }},
        {IDC_SECURITY_128_COPYING, [](Security& s) -> std::int32_t& { return s.Bits128.AllowCopying; }},
    };
    for (const auto& row : rows) {
        PrinterSettings record = Secured();
        row.field(record.Security) = 1;
        const OpenPage open(record);
        for (const auto& other : rows) {
            const LiveWindow& panel = other.id >= IDC_SECURITY_128_CHANGES ? open.panel128 : open.panel40;
            EXPECT_EQ(panel.IsChecked(other.id), other.id == row.id) << row.id << " " << other.id;
            panel.Click(other.id);
        }
        EXPECT_TRUE(open.dialog->IsApplyEnabled());
        open.dialog->Apply();

        PrinterSettings inverted = Secured();
        for (const auto& other : rows) other.field(inverted.Security) = other.id == row.id ? 0 : 1;
        EXPECT_EQ(open.dialog->Record(), inverted) << row.id;
    }
}

TEST(SecurityPage, ThePermissionListsStoreTheirPositions) {
    using Permissions = PrinterSettings::SecurityGroup::Permissions128;
    const struct {
        UINT id;
        std::int32_t Permissions::*field;
        std::vector<std::wstring> items;
    } lists[] = {
        {IDC_SECURITY_128_CHANGES,
         &Permissions::Changes,
         {L"None ", L"Only Document Assembly", L"Only Form Field Fill-in or Signing",
          L"Comment Authoring, Form Field Fill-in or Signing",
          L"General Editing, Comment and Form Field Authoring"}},
        {IDC_SECURITY_128_PRINTING,
         &Permissions::Printing,
         {L"Not Allowed", L"Low Resolution", L"Fully Allowed"}},
    };
    for (const auto& list : lists) {
        PrinterSettings record = Secured();
        record.Security.Bits128.*list.field = static_cast<std::int32_t>(list.items.size()) - 1;
        const OpenPage open(record);
        EXPECT_EQ(open.panel128.Items(list.id), list.items);
        EXPECT_EQ(open.panel128.Selected(list.id), list.items.back());
        for (size_t position = 0; position < list.items.size(); ++position) {
            open.panel128.Choose(list.id, list.items[position]);
            EXPECT_TRUE(open.dialog->IsApplyEnabled());
            open.dialog->Apply();
            record.Security.Bits128.*list.field = static_cast<std::int32_t>(position);
            EXPECT_EQ(open.dialog->Record(), record);
        }
    }
}

TEST(SecurityPage, ThePermissionsOfBothLevelsAreStoredWhicheverIsVisible) {
    const OpenPage open(Secured(40));
    open.panel40.Click(IDC_SECURITY_40_COPYING);
    open.page.Choose(IDC_SECURITY_LEVEL, k128Text);
    open.panel128.Choose(IDC_SECURITY_128_PRINTING, L"Low Resolution");
    open.panel128.Click(IDC_SECURITY_128_ACCESS);
    EXPECT_EQ(open.dialog->Ok(), 1);

    const ScratchSettings stored;
    open.dialog->Call([&](IPdfPrinterPreferences& object) {
        object.StoreInRegistry(Security, AutomationString(stored.SubKey()).get());
    });
    EXPECT_EQ(stored.Number("Security.Use"), 1);
    EXPECT_EQ(stored.Number("Security.Level"), 128);
    EXPECT_EQ(stored.Number("Security.40.AllowCopying"), 1);
    EXPECT_EQ(stored.Number("Security.40.AllowPrinting"), 0);
    EXPECT_EQ(stored.Number("Security.128.ContentAccess"), 1);
    EXPECT_EQ(stored.Number("Security.128.Printing"), 1);
    EXPECT_EQ(stored.Number("Security.128.Changes"), 0);
}

TEST(SecurityPage, CancelKeepsWhatWasAppliedAndNothingMore) {
    const OpenPage open(Secured());
    open.panel128.Click(IDC_SECURITY_128_COPYING);
    open.dialog->Apply();
    EXPECT_FALSE(open.dialog->IsApplyEnabled());
    open.panel128.Click(IDC_SECURITY_128_ACCESS);
    open.panel40.Click(IDC_SECURITY_40_PRINTING);
    open.page.Click(IDC_SECURITY_USE);
    EXPECT_EQ(open.dialog->Cancel(), 2);
    PrinterSettings expected = Secured();
    expected.Security.Bits128.AllowCopying = 1;
    EXPECT_EQ(open.dialog->Record(), expected);
}

TEST(SecurityPage, TextsAreTranslatedAndPasswordsAreNot) {
    const LanguageFolder german({{L"None ", L"Keine"},
                                 {L"None", L"Nichts"},
                                 {L"Low Resolution", L"Niedrig"},
                                 {L"Use PDF security", L"Sicherheit"},
                                 {L"Allow Printing", L"Drucken"},
                                 {k40Text, L"RC4 mit 40 Bit"},
                                 {L"secret", L"geheim"}});
    PrinterSettings record = Secured();
    record.Security.UserPwd = L"secret";
    const OpenPage open(record, kGerman);
    EXPECT_EQ(open.page.Text(IDC_SECURITY_USE), L"Sicherheit");
    EXPECT_EQ(open.panel40.Text(IDC_SECURITY_40_PRINTING), L"Drucken");
    EXPECT_EQ(open.panel128.Selected(IDC_SECURITY_128_CHANGES), L"Keine");
    EXPECT_EQ(open.page.Text(IDC_SECURITY_USER_PASSWORD), L"secret");

    open.panel128.Choose(IDC_SECURITY_128_PRINTING, L"Niedrig");
    open.page.Choose(IDC_SECURITY_LEVEL, L"RC4 mit 40 Bit");
    open.dialog->Apply();
    record.Security.Bits128.Printing = 1;
    record.Security.Level = 40;
    EXPECT_EQ(open.dialog->Record(), record);
}

// The panels follow the stored level and then the position in the list, the stored value follows the text.
TEST(SecurityPage, WithEqualLevelTextsThePanelsFollowThePosition) {
    const LanguageFolder german({{k40Text, L"RC4"}, {k128Text, L"RC4"}});
    const OpenPage open(Secured(128), kGerman);
    EXPECT_EQ(open.VisiblePanels(), "128");
    for (const WPARAM position : {0U, 1U}) {
        SendMessageW(open.page.Control(IDC_SECURITY_LEVEL), CB_SETCURSEL, position, 0);
        SendMessageW(open.page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_SECURITY_LEVEL, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(open.page.Control(IDC_SECURITY_LEVEL)));
        EXPECT_EQ(open.VisiblePanels(), position == 0 ? "40" : "128");
    }
    open.panel128.Click(IDC_SECURITY_128_ACCESS);
    open.dialog->Apply();
    EXPECT_EQ(open.dialog->Record().Security.Level, 40);
}

TEST(SecurityPage, TabAndEnterGoThroughThePageAndThenRoundThePanel) {
    for (const WORD key : {WORD{VK_TAB}, WORD{VK_RETURN}}) {
        for (const std::int32_t level : {40, 128}) {
            PrinterSettings record = Secured(level);
            record.Security.UserPwd = L"user";
            const OpenPage open(record);
            const LiveWindow& panel = level == 40 ? open.panel40 : open.panel128;
            const auto ring = level == 40
                                  ? std::vector<UINT>{IDC_SECURITY_40_PRINTING, IDC_SECURITY_40_CHANGING,
                                                      IDC_SECURITY_40_COPYING, IDC_SECURITY_40_COMMENTS}
                                  : std::vector<UINT>{IDC_SECURITY_128_ACCESS, IDC_SECURITY_128_COPYING,
                                                      IDC_SECURITY_128_CHANGES, IDC_SECURITY_128_PRINTING};

            open.page.Focus(IDC_SECURITY_USE);
            for (const UINT id : std::vector<UINT>{IDC_SECURITY_USE_USER_PASSWORD, IDC_SECURITY_USER_PASSWORD,
                                                   IDC_SECURITY_USE_OWNER_PASSWORD, IDC_SECURITY_LEVEL}) {
                open.dialog->PressKey(key);
                EXPECT_TRUE(open.dialog->FocusReaches(open.page.Control(id))) << id;
            }
            for (int round = 0; round < 2; ++round) {
                for (const UINT id : ring) {
                    open.dialog->PressKey(key);
                    EXPECT_TRUE(open.dialog->FocusReaches(panel.Control(id))) << id;
                }
            }
            EXPECT_FALSE(open.dialog->IsApplyEnabled());
        }
    }
}

TEST(SecurityPage, ShiftTabLeavesThePanelForThePage) {
    const OpenPage open(Secured(40));
    open.panel40.Focus(IDC_SECURITY_40_PRINTING);
    open.dialog->PressKey(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(open.dialog->FocusReaches(open.page.Control(IDC_SECURITY_LEVEL)));
}

TEST(SecurityPage, TheMouseReachesThePanelsInsideTheirContainer) {
    const OpenPage open(Secured(40));
    open.panel40.MouseClick(IDC_SECURITY_40_COMMENTS);
    EXPECT_TRUE(WaitUntil([&] { return open.panel40.IsChecked(IDC_SECURITY_40_COMMENTS); }));
    EXPECT_TRUE(open.dialog->IsApplyEnabled());
}

}  // namespace
}  // namespace vmk::test
