#include "resources/ids/security.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/language_folder.h"
#include "tests/support/page_fixture.h"

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

PrinterSettings Secured(std::int32_t level = 128) {
    PrinterSettings record;
    record.Security.Use = 1;
    record.Security.Level = level;
    return record;
}

class SecurityPage : public PageTest {
  protected:
    SecurityPage() : PageTest(page_bit::kSecurity) {}

    void OpenWith(const PrinterSettings& record, LANGID language = kEnglish) {
        PageTest::OpenWith(record, language);
        for (HWND panel : ChildrenOf(page.Control(IDC_SECURITY_PANELS)))
            (GetDlgItem(panel, IDC_SECURITY_40_PRINTING) ? panel40 : panel128) = LiveWindow(panel);
    }

    // What of the permissions is on screen.
    std::string VisiblePanels() const {
        std::string visible;
        if (IsWindowVisible(panel40.Handle())) visible += "40";
        if (IsWindowVisible(panel128.Handle())) visible += "128";
        return visible;
    }

    LiveWindow panel40;
    LiveWindow panel128;
};

TEST_F(SecurityPage, WithoutSecurityEverythingElseIsDisabledAndNoPermissionsAreShown) {
    for (const std::int32_t level : {40, 128}) {
        PrinterSettings record = Secured(level);
        record.Security.Use = 0;
        record.Security.UserPwd = L"user";
        OpenWith(record);
        EXPECT_FALSE(page.IsChecked(IDC_SECURITY_USE));
        EXPECT_TRUE(page.AreDisabled(kDependents));
        EXPECT_FALSE(page.IsShown(IDC_SECURITY_PANELS));
        EXPECT_EQ(VisiblePanels(), "");
        EXPECT_TRUE(page.IsChecked(IDC_SECURITY_USE_USER_PASSWORD));
        EXPECT_FALSE(page.IsChecked(IDC_SECURITY_USE_OWNER_PASSWORD));

        page.Click(IDC_SECURITY_USE);
        EXPECT_EQ(VisiblePanels(), std::to_string(level));
        EXPECT_TRUE(page.AreEnabled(kUserPassword));
        EXPECT_TRUE(page.AreDisabled(kOwnerPassword));
    }
}

TEST_F(SecurityPage, AStoredPasswordChecksItsBoxAndEnablesItsEdit) {
    for (const bool user : {false, true}) {
        for (const bool owner : {false, true}) {
            PrinterSettings record = Secured();
            if (user) record.Security.UserPwd = L"user";
            if (owner) record.Security.OwnerPwd = L"owner";
            OpenWith(record);
            EXPECT_EQ(page.IsChecked(IDC_SECURITY_USE_USER_PASSWORD), user);
            EXPECT_EQ(page.IsChecked(IDC_SECURITY_USE_OWNER_PASSWORD), owner);
            EXPECT_EQ(page.AreEnabled(kUserPassword), user);
            EXPECT_EQ(page.AreDisabled(kUserPassword), !user);
            EXPECT_EQ(page.AreEnabled(kOwnerPassword), owner);
            EXPECT_EQ(page.AreDisabled(kOwnerPassword), !owner);
            EXPECT_EQ(page.Text(IDC_SECURITY_USER_PASSWORD), user ? L"user" : L"");
            EXPECT_EQ(page.Text(IDC_SECURITY_OWNER_PASSWORD), owner ? L"owner" : L"");
        }
    }
}

TEST_F(SecurityPage, AnyStoredNumberButZeroIsSecurity) {
    PrinterSettings record = Secured();
    record.Security.Use = 7;
    OpenWith(record);
    EXPECT_TRUE(page.IsChecked(IDC_SECURITY_USE));
    EXPECT_EQ(VisiblePanels(), "128");
}

TEST_F(SecurityPage, SecurityOffHidesThePermissionsAndOnBringsTheSamePanelBack) {
    OpenWith(Secured(40));
    page.Click(IDC_SECURITY_USE);
    EXPECT_TRUE(page.AreDisabled(kDependents));
    EXPECT_EQ(VisiblePanels(), "");
    EXPECT_TRUE(dialog->IsApplyEnabled());
    dialog->Apply();
    page.Click(IDC_SECURITY_USE);
    EXPECT_EQ(VisiblePanels(), "40");
    EXPECT_TRUE(dialog->IsApplyEnabled());
}

TEST_F(SecurityPage, ThePasswordBoxesEnableTheirEditsAndApply) {
    for (const auto& [box, dependents] :
         {std::pair<UINT, std::vector<UINT>>(IDC_SECURITY_USE_USER_PASSWORD, kUserPassword),
          std::pair<UINT, std::vector<UINT>>(IDC_SECURITY_USE_OWNER_PASSWORD, kOwnerPassword)}) {
        OpenWith(Secured());
        page.Click(box);
        EXPECT_TRUE(page.AreEnabled(dependents));
        EXPECT_TRUE(dialog->IsApplyEnabled());
        page.Click(box);
        EXPECT_TRUE(page.AreDisabled(dependents));
    }
}

TEST_F(SecurityPage, TheLevelSwapsThePanelsButDoesNotEnableApply) {
    OpenWith(Secured());
    EXPECT_EQ(page.Items(IDC_SECURITY_LEVEL), (std::vector{k40Text, k128Text}));
    EXPECT_EQ(page.Selected(IDC_SECURITY_LEVEL), k128Text);
    ASSERT_TRUE(page.Choose(IDC_SECURITY_LEVEL, k40Text));
    EXPECT_EQ(VisiblePanels(), "40");
    ASSERT_TRUE(page.Choose(IDC_SECURITY_LEVEL, k128Text));
    EXPECT_EQ(VisiblePanels(), "128");
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(SecurityPage, TheLevelAloneIsNotStored) {
    OpenWith(Secured());
    page.Choose(IDC_SECURITY_LEVEL, k40Text);
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(dialog->Record(), Secured());
}

TEST_F(SecurityPage, TheLevelIsStoredTogetherWithAnotherChange) {
    for (const std::int32_t level : {40, 128}) {
        OpenWith(Secured(168 - level));
        page.Choose(IDC_SECURITY_LEVEL, level == 40 ? k40Text : k128Text);
        page.Click(IDC_SECURITY_USE_USER_PASSWORD);
        dialog->Apply();
        EXPECT_EQ(dialog->Record(), Secured(level));
    }
}

TEST_F(SecurityPage, AnUnknownLevelSelectsNothingAndShowsThe128BitPermissions) {
    OpenWith(Secured(56));
    EXPECT_EQ(page.Selected(IDC_SECURITY_LEVEL), L"");
    EXPECT_EQ(VisiblePanels(), "128");
    page.Click(IDC_SECURITY_USE);
    page.Click(IDC_SECURITY_USE);
    EXPECT_EQ(VisiblePanels(), "128");
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Security.Level, -1);
}

TEST_F(SecurityPage, AMessageWithoutSelectionLeavesThePanelsAlone) {
    OpenWith(Secured(40));
    SendMessageW(page.Control(IDC_SECURITY_LEVEL), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    SendMessageW(page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_SECURITY_LEVEL, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(page.Control(IDC_SECURITY_LEVEL)));
    EXPECT_EQ(VisiblePanels(), "40");
}

TEST_F(SecurityPage, PasswordsAreStoredWhole) {
    OpenWith(Secured());
    const std::wstring longPassword(5000, L'p');
    page.Click(IDC_SECURITY_USE_USER_PASSWORD);
    page.Click(IDC_SECURITY_USE_OWNER_PASSWORD);
    page.EnterText(IDC_SECURITY_USER_PASSWORD, L"open sesame");
    page.EnterText(IDC_SECURITY_OWNER_PASSWORD, longPassword);
    dialog->Apply();
    const PrinterSettings record = dialog->Record();
    EXPECT_EQ(record.Security.UserPwd, L"open sesame");
    EXPECT_EQ(record.Security.OwnerPwd, longPassword);
}

TEST_F(SecurityPage, APasswordThatIsNoLongerRequiredIsKept) {
    OpenWith(Secured());
    page.Click(IDC_SECURITY_USE_USER_PASSWORD);
    page.EnterText(IDC_SECURITY_USER_PASSWORD, L"secret");
    page.Click(IDC_SECURITY_USE_USER_PASSWORD);
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(dialog->Record().Security.UserPwd, L"secret");
}

TEST_F(SecurityPage, ARequiredPasswordMayBeEmpty) {
    OpenWith(Secured());
    page.Click(IDC_SECURITY_USE_OWNER_PASSWORD);
    dialog->Apply();
    EXPECT_EQ(dialog->Record(), Secured());
    EXPECT_TRUE(page.IsChecked(IDC_SECURITY_USE_OWNER_PASSWORD));
}

TEST_F(SecurityPage, PasswordsShowAsDots) {
    OpenWith(Secured());
    for (const UINT id : std::vector<UINT>{IDC_SECURITY_USER_PASSWORD, IDC_SECURITY_OWNER_PASSWORD}) {
        EXPECT_TRUE(GetWindowLongW(page.Control(id), GWL_STYLE) & ES_PASSWORD);
        EXPECT_NE(SendMessageW(page.Control(id), EM_GETPASSWORDCHAR, 0, 0), 0);
    }
}

TEST_F(SecurityPage, EachPermissionFlagIsShownAndStoredOnItsOwn) {
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
        OpenWith(record);
        for (const auto& other : rows) {
            const LiveWindow& panel = other.id >= IDC_SECURITY_128_CHANGES ? panel128 : panel40;
            EXPECT_EQ(panel.IsChecked(other.id), other.id == row.id) << row.id << " " << other.id;
            panel.Click(other.id);
        }
        EXPECT_TRUE(dialog->IsApplyEnabled());
        dialog->Apply();

        PrinterSettings inverted = Secured();
        for (const auto& other : rows) other.field(inverted.Security) = other.id == row.id ? 0 : 1;
        EXPECT_EQ(dialog->Record(), inverted) << row.id;
    }
}

TEST_F(SecurityPage, ThePermissionListsStoreTheirPositions) {
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
        OpenWith(record);
        EXPECT_EQ(panel128.Items(list.id), list.items);
        EXPECT_EQ(panel128.Selected(list.id), list.items.back());
        for (size_t position = 0; position < list.items.size(); ++position) {
            panel128.Choose(list.id, list.items[position]);
            EXPECT_TRUE(dialog->IsApplyEnabled());
            dialog->Apply();
            record.Security.Bits128.*list.field = static_cast<std::int32_t>(position);
            EXPECT_EQ(dialog->Record(), record);
        }
    }
}

TEST_F(SecurityPage, ThePermissionsOfBothLevelsAreStoredWhicheverIsVisible) {
    OpenWith(Secured(40));
    panel40.Click(IDC_SECURITY_40_COPYING);
    page.Choose(IDC_SECURITY_LEVEL, k128Text);
    panel128.Choose(IDC_SECURITY_128_PRINTING, L"Low Resolution");
    panel128.Click(IDC_SECURITY_128_ACCESS);
    EXPECT_EQ(dialog->Ok(), 1);

    StoreInRegistry(settings);
    EXPECT_EQ(settings.Number("Security.Use"), 1);
    EXPECT_EQ(settings.Number("Security.Level"), 128);
    EXPECT_EQ(settings.Number("Security.40.AllowCopying"), 1);
    EXPECT_EQ(settings.Number("Security.40.AllowPrinting"), 0);
    EXPECT_EQ(settings.Number("Security.128.ContentAccess"), 1);
    EXPECT_EQ(settings.Number("Security.128.Printing"), 1);
    EXPECT_EQ(settings.Number("Security.128.Changes"), 0);
}

TEST_F(SecurityPage, CancelKeepsWhatWasAppliedAndNothingMore) {
    OpenWith(Secured());
    panel128.Click(IDC_SECURITY_128_COPYING);
    dialog->Apply();
    EXPECT_FALSE(dialog->IsApplyEnabled());
    panel128.Click(IDC_SECURITY_128_ACCESS);
    panel40.Click(IDC_SECURITY_40_PRINTING);
    page.Click(IDC_SECURITY_USE);
    EXPECT_EQ(dialog->Cancel(), 2);
    PrinterSettings expected = Secured();
    expected.Security.Bits128.AllowCopying = 1;
    EXPECT_EQ(dialog->Record(), expected);
}

TEST_F(SecurityPage, TextsAreTranslatedAndPasswordsAreNot) {
    const LanguageFolder german({{L"None ", L"Keine"},
                                 {L"None", L"Nichts"},
                                 {L"Low Resolution", L"Niedrig"},
                                 {L"Use PDF security", L"Sicherheit"},
                                 {L"Allow Printing", L"Drucken"},
                                 {k40Text, L"RC4 mit 40 Bit"},
                                 {L"secret", L"geheim"}});
    PrinterSettings record = Secured();
    record.Security.UserPwd = L"secret";
    OpenWith(record, kGerman);
    EXPECT_EQ(page.Text(IDC_SECURITY_USE), L"Sicherheit");
    EXPECT_EQ(panel40.Text(IDC_SECURITY_40_PRINTING), L"Drucken");
    EXPECT_EQ(panel128.Selected(IDC_SECURITY_128_CHANGES), L"Keine");
    EXPECT_EQ(page.Text(IDC_SECURITY_USER_PASSWORD), L"secret");

    panel128.Choose(IDC_SECURITY_128_PRINTING, L"Niedrig");
    page.Choose(IDC_SECURITY_LEVEL, L"RC4 mit 40 Bit");
    dialog->Apply();
    record.Security.Bits128.Printing = 1;
    record.Security.Level = 40;
    EXPECT_EQ(dialog->Record(), record);
}

// The panels follow the stored level and then the position in the list, the stored value follows the text.
TEST_F(SecurityPage, WithEqualLevelTextsThePanelsFollowThePosition) {
    const LanguageFolder german({{k40Text, L"RC4"}, {k128Text, L"RC4"}});
    OpenWith(Secured(128), kGerman);
    EXPECT_EQ(VisiblePanels(), "128");
    for (const WPARAM position : {0U, 1U}) {
        SendMessageW(page.Control(IDC_SECURITY_LEVEL), CB_SETCURSEL, position, 0);
        SendMessageW(page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_SECURITY_LEVEL, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(page.Control(IDC_SECURITY_LEVEL)));
        EXPECT_EQ(VisiblePanels(), position == 0 ? "40" : "128");
    }
    panel128.Click(IDC_SECURITY_128_ACCESS);
    dialog->Apply();
    EXPECT_EQ(dialog->Record().Security.Level, 40);
}

TEST_F(SecurityPage, TabAndEnterGoThroughThePageAndThenRoundThePanel) {
    for (const WORD key : {WORD{VK_TAB}, WORD{VK_RETURN}}) {
        for (const std::int32_t level : {40, 128}) {
            PrinterSettings record = Secured(level);
            record.Security.UserPwd = L"user";
            OpenWith(record);
            const LiveWindow& panel = level == 40 ? panel40 : panel128;
            const auto ring = level == 40
                                  ? std::vector<UINT>{IDC_SECURITY_40_PRINTING, IDC_SECURITY_40_CHANGING,
                                                      IDC_SECURITY_40_COPYING, IDC_SECURITY_40_COMMENTS}
                                  : std::vector<UINT>{IDC_SECURITY_128_ACCESS, IDC_SECURITY_128_COPYING,
                                                      IDC_SECURITY_128_CHANGES, IDC_SECURITY_128_PRINTING};

            page.Focus(IDC_SECURITY_USE);
            for (const UINT id : std::vector<UINT>{IDC_SECURITY_USE_USER_PASSWORD, IDC_SECURITY_USER_PASSWORD,
                                                   IDC_SECURITY_USE_OWNER_PASSWORD, IDC_SECURITY_LEVEL}) {
                dialog->PressKey(key);
                EXPECT_TRUE(FocusReaches(id)) << id;
            }
            for (int round = 0; round < 2; ++round) {
                for (const UINT id : ring) {
                    dialog->PressKey(key);
                    EXPECT_TRUE(dialog->FocusReaches(panel.Control(id))) << id;
                }
            }
            EXPECT_FALSE(dialog->IsApplyEnabled());
        }
    }
}

TEST_F(SecurityPage, ShiftTabLeavesThePanelForThePage) {
    OpenWith(Secured(40));
    panel40.Focus(IDC_SECURITY_40_PRINTING);
    dialog->PressKey(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(FocusReaches(IDC_SECURITY_LEVEL));
}

TEST_F(SecurityPage, TheMouseReachesThePanelsInsideTheirContainer) {
    OpenWith(Secured(40));
    panel40.MouseClick(IDC_SECURITY_40_COMMENTS);
    EXPECT_TRUE(WaitUntil([&] { return panel40.IsChecked(IDC_SECURITY_40_COMMENTS); }));
    EXPECT_TRUE(dialog->IsApplyEnabled());
}

}  // namespace
}  // namespace vmk::test
