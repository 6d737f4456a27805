#include "resources/ids/smtp.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "resources/ids/email.h"
#include "resources/ids/main.h"
#include "tests/support/language_folder.h"
#include "tests/support/live_dialog.h"
#include "tests/support/loaded_module.h"
#include "tests/support/wait.h"

namespace vmk::test {
namespace {

constexpr UINT kAddress = IDC_SMTP_ADDRESS;
constexpr UINT kPort = IDC_SMTP_PORT;
constexpr UINT kSpin = IDC_SMTP_PORT_SPIN;
constexpr UINT kAuthentication = IDC_SMTP_AUTHENTICATION;
constexpr UINT kUserName = IDC_SMTP_USER_NAME;
constexpr UINT kPassword = IDC_SMTP_PASSWORD;
constexpr UINT kSecure = IDC_SMTP_SECURE;

const std::vector<UINT> kLogonControls = {204, 257, kUserName, kPassword, kSecure};

// The server dialog, opened from the e-mail page of a dialog on a settings key of its own.
class SmtpDialog : public testing::Test {
  protected:
    SmtpDialog() {
        PrinterSettings stored;
        stored.Email.Type = 3;
        stored.Email.SMTP = {.Address = L"mail.example.org",
                             .UserName = L"user",
                             .Password = L"secret",
                             .Port = 587,
                             .RequiresAuthentication = 1};
        stored.Email.STMP.UseSSL = 1;
        m_settings.Store(stored);
    }

    void Open(LANGID language = 0x0409) {
        m_dialog.emplace(
            LiveDialog::Options{.pages = page_bit::kEmail, .language = language, .settings = &m_settings});
        m_page = m_dialog->VisiblePage();
        OpenServer();
    }
    void OpenServer() {
        m_page.PostClick(IDC_EMAIL_EDIT_SERVER);
        m_server = m_dialog->WaitForModal();
        ASSERT_TRUE(m_server);
    }
    void Close(UINT button) const {
        m_server.PostClick(button);
        ASSERT_TRUE(m_dialog->WaitUntilClosed(m_server));
        ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(m_dialog->Main().Handle()) != FALSE; }));
    }
    PrinterSettings::EmailGroup Record() const { return m_dialog->Record().Email; }
    void FocusOn(UINT id) const {
        m_server.Focus(id);
        ASSERT_TRUE(m_dialog->FocusReaches(m_server.Control(id)));
    }
    bool FocusReaches(UINT id) const { return m_dialog->FocusReaches(m_server.Control(id)); }

    ScratchSettings m_settings;
    std::optional<LiveDialog> m_dialog;
    LiveWindow m_page;
    LiveWindow m_server;
};

TEST_F(SmtpDialog, ShowsTheStoredServer) {
    Open();
    EXPECT_EQ(m_server.Text(), L"Outgoing Mail Server");
    EXPECT_EQ(m_server.Text(kAddress), L"mail.example.org");
    EXPECT_EQ(m_server.Text(kPort), L"587");
    EXPECT_TRUE(m_server.IsChecked(kAuthentication));
    EXPECT_EQ(m_server.Text(kUserName), L"user");
    EXPECT_EQ(m_server.Text(kPassword), L"secret");
    EXPECT_TRUE(m_server.IsChecked(kSecure));
}

TEST_F(SmtpDialog, APortOf25ShowsAs25AndIsStoredAs25) {
    m_settings.SetNumber("Email.SMTP.Port", 25);
    Open();
    EXPECT_EQ(m_server.Text(kPort), L"25");
    Close(IDOK);
    EXPECT_EQ(Record().SMTP.Port, 25);
}

TEST_F(SmtpDialog, IsModalOverTheActiveWindow) {
    Open();
    EXPECT_EQ(GetWindow(m_server.Handle(), GW_OWNER), m_dialog->Main().Handle());
    EXPECT_FALSE(IsWindowEnabled(m_dialog->Main().Handle()));
}

TEST_F(SmtpDialog, OkStoresAtOnceAndUpdatesTheSummary) {
    Open();
    m_server.EnterText(kAddress, L"smtp.example.net");
    m_server.EnterTextAndLeave(kPort, L"465", kAddress);
    m_server.EnterText(kUserName, L"other");
    m_server.EnterText(kPassword, L"changed");
    m_server.Click(kSecure);
    Close(IDOK);
    EXPECT_EQ(m_page.Text(IDC_EMAIL_SERVER), L"smtp.example.net");
    const PrinterSettings::EmailGroup stored = Record();
    EXPECT_EQ(stored.SMTP.Address, L"smtp.example.net");
    EXPECT_EQ(stored.SMTP.Port, 465);
    EXPECT_EQ(stored.SMTP.RequiresAuthentication, 1);
    EXPECT_EQ(stored.SMTP.UserName, L"other");
    EXPECT_EQ(stored.SMTP.Password, L"changed");
    EXPECT_EQ(stored.STMP.UseSSL, 0);
}

TEST_F(SmtpDialog, WhatOkStoredSurvivesCancellingTheMainDialog) {
    Open();
    m_server.EnterText(kAddress, L"smtp.example.net");
    m_server.EnterText(kPassword, L"changed");
    Close(IDOK);
    EXPECT_EQ(m_dialog->Cancel(), 2);
    EXPECT_EQ(Record().SMTP.Address, L"smtp.example.net");
    EXPECT_EQ(Record().SMTP.Password, L"changed");
}

TEST_F(SmtpDialog, CancelStoresNothingAndLeavesTheSummary) {
    Open();
    const PrinterSettings::EmailGroup before = Record();
    m_server.EnterText(kAddress, L"smtp.example.net");
    m_server.EnterTextAndLeave(kPort, L"465", kAddress);
    m_server.EnterText(kUserName, L"other");
    m_server.EnterText(kPassword, L"changed");
    m_server.Click(kSecure);
    m_server.Click(kAuthentication);
    Close(IDCANCEL);
    EXPECT_EQ(Record(), before);
    EXPECT_EQ(m_page.Text(IDC_EMAIL_SERVER), L"mail.example.org");
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(Record(), before);
}

TEST_F(SmtpDialog, ItsCloseBoxCancels) {
    Open();
    m_server.EnterText(kAddress, L"smtp.example.net");
    PostMessageW(m_server.Handle(), WM_SYSCOMMAND, SC_CLOSE, 0);
    ASSERT_TRUE(m_dialog->WaitUntilClosed(m_server));
    EXPECT_EQ(Record().SMTP.Address, L"mail.example.org");
}

TEST_F(SmtpDialog, EscapeInAFieldCancelsItAndNotTheMainDialog) {
    Open();
    m_server.EnterText(kAddress, L"other");
    FocusOn(kAddress);
    m_dialog->PressKey(VK_ESCAPE);
    ASSERT_TRUE(m_dialog->WaitUntilClosed(m_server));
    EXPECT_EQ(Record().SMTP.Address, L"mail.example.org");
    EXPECT_TRUE(IsWindow(m_dialog->Main().Handle()));
}

TEST_F(SmtpDialog, OpeningAndCancellingIsNoChange) {
    Open();
    EXPECT_FALSE(m_dialog->IsApplyEnabled());
    Close(IDCANCEL);
    EXPECT_FALSE(m_dialog->IsApplyEnabled());
}

TEST_F(SmtpDialog, OpeningKeepsAnEarlierChangeInMind) {
    Open();
    Close(IDCANCEL);
    m_page.Click(IDC_EMAIL_ZIP);
    ASSERT_NO_FATAL_FAILURE(OpenServer());
    EXPECT_TRUE(m_dialog->IsApplyEnabled());
}

TEST_F(SmtpDialog, EachFieldEnablesTheMainDialogsApply) {
    for (const UINT id : {kAddress, kPort, kUserName, kPassword}) {
        Open();
        m_server.EnterText(id, L"1");
        EXPECT_TRUE(m_dialog->IsApplyEnabled()) << id;
    }
    for (const UINT id : {kAuthentication, kSecure}) {
        Open();
        m_server.Click(id);
        EXPECT_TRUE(m_dialog->IsApplyEnabled()) << id;
    }
    Open();
    m_server.SpinUp(kSpin);
    EXPECT_TRUE(m_dialog->IsApplyEnabled());
}

TEST_F(SmtpDialog, EveryValueReachesTheRegistry) {
    Open();
    m_server.Click(kSecure);
    Close(IDOK);
    EXPECT_EQ(m_dialog->Ok(), 1);
    m_dialog->Call([&](IPdfPrinterPreferences& object) {
        object.StoreInRegistry(eMail, AutomationString(m_settings.SubKey()).get());
    });
    EXPECT_EQ(m_settings.Text("Email.SMTP.Address"), L"mail.example.org");
    EXPECT_EQ(m_settings.Number("Email.SMTP.Port"), 587);
    EXPECT_EQ(m_settings.Number("Email.SMTP.RequiresAuthentication"), 1);
    EXPECT_EQ(m_settings.Text("Email.SMTP.UserName"), L"user");
    EXPECT_EQ(m_settings.Text("Email.SMTP.Password"), L"secret");
    EXPECT_EQ(m_settings.Number("Email.STMP.UseSSL"), 0);
}

TEST_F(SmtpDialog, AuthenticationSwitchesTheLogonFieldsAsStoredAndAsClicked) {
    for (const int required : {0, 1}) {
        m_settings.SetNumber("Email.SMTP.RequiresAuthentication", required);
        Open();
        EXPECT_EQ(m_server.AreEnabled(kLogonControls), required == 1);
        EXPECT_EQ(m_server.AreDisabled(kLogonControls), required == 0);
        m_server.Click(kAuthentication);
        EXPECT_EQ(m_server.AreEnabled(kLogonControls), required == 0);
        EXPECT_EQ(m_server.AreDisabled(kLogonControls), required == 1);
    }
}

TEST_F(SmtpDialog, WithoutAuthenticationTheLogonValuesAreKeptAndStored) {
    Open();
    m_server.EnterText(kUserName, L"other");
    m_server.Click(kAuthentication);
    Close(IDOK);
    EXPECT_EQ(Record().SMTP.RequiresAuthentication, 0);
    EXPECT_EQ(Record().SMTP.UserName, L"other");
    EXPECT_EQ(Record().SMTP.Password, L"secret");
    EXPECT_EQ(Record().STMP.UseSSL, 1);
}

TEST_F(SmtpDialog, TheArrowsStepThePortWithinItsLimits) {
    struct {
        const wchar_t* from;
        bool up;
        const wchar_t* to;
    } const cases[] = {{L"25", true, L"26"},        {L"25", false, L"24"}, {L"65534", true, L"65535"},
                       {L"65535", true, L"65535"},  {L"2", false, L"1"},   {L"1", false, L"1"},
                       {L"70000", false, L"65535"}, {L"-4", true, L"1"},   {L"no number", true, L"1"}};
    Open();
    for (const auto& step : cases) {
        m_server.EnterText(kPort, step.from);
        step.up ? m_server.SpinUp(kSpin) : m_server.SpinDown(kSpin);
        EXPECT_EQ(m_server.Text(kPort), step.to) << step.from;
    }
    Close(IDOK);
    EXPECT_EQ(Record().SMTP.Port, 1);
}

TEST_F(SmtpDialog, ATypedPortOutsideItsLimitsIsRefusedAndKeepsTheFocus) {
    for (const wchar_t* const typed : {L"0", L"65536", L"-1", L"", L"abc", L"nan", L"inf"}) {
        Open();
        m_server.EnterTextAndLeave(kPort, typed, kAddress);
        EXPECT_EQ(m_server.Text(kPort), L"587") << typed;
        EXPECT_EQ(m_dialog->Focused(), m_server.Control(kPort)) << typed;
    }
}

TEST_F(SmtpDialog, TheLimitsOfThePortCanBeTyped) {
    Open();
    for (const int port : {1, 65535}) {
        m_server.EnterTextAndLeave(kPort, std::to_wstring(port), kAddress);
        Close(IDOK);
        EXPECT_EQ(Record().SMTP.Port, port);
        ASSERT_NO_FATAL_FAILURE(OpenServer());
    }
}

TEST_F(SmtpDialog, AFractionIsShownRoundedAndStoredTruncated) {
    Open();
    m_server.EnterTextAndLeave(kPort, L"25.7", kAddress);
    EXPECT_EQ(m_server.Text(kPort), L"26");
    Close(IDOK);
    EXPECT_EQ(Record().SMTP.Port, 25);
}

TEST_F(SmtpDialog, AStoredPortOutsideItsLimitsStaysUntilItIsEdited) {
    for (const int stored : {0, -1, 70000}) {
        m_settings.SetNumber("Email.SMTP.Port", stored);
        Open();
        EXPECT_EQ(m_server.Text(kPort), std::to_wstring(stored));
        Close(IDOK);
        EXPECT_EQ(Record().SMTP.Port, stored);
    }
}

TEST_F(SmtpDialog, APortStillBeingTypedIsStoredByAClickOnOk) {
    Open();
    FocusOn(kPort);
    m_server.EnterText(kPort, L"2525");
    m_server.MouseClick(IDOK);
    ASSERT_TRUE(m_dialog->WaitUntilClosed(m_server));
    EXPECT_EQ(Record().SMTP.Port, 2525);
}

TEST_F(SmtpDialog, TabGoesRoundTheFields) {
    Open();
    const std::vector<UINT> ring = {kAddress,  kPort,   kAuthentication, kUserName,
                                    kPassword, kSecure, kAddress};
    FocusOn(ring.front());
    for (size_t index = 1; index < ring.size(); ++index) {
        m_dialog->PressKey(VK_TAB);
        EXPECT_TRUE(FocusReaches(ring[index])) << ring[index];
    }
}

TEST_F(SmtpDialog, EnterGoesRoundTheFieldsLikeTabAndClosesNothing) {
    Open();
    const std::vector<UINT> ring = {kAddress,  kPort,   kAuthentication, kUserName,
                                    kPassword, kSecure, kAddress};
    FocusOn(ring.front());
    for (size_t index = 1; index < ring.size(); ++index) {
        m_dialog->PressKey(VK_RETURN);
        EXPECT_TRUE(FocusReaches(ring[index])) << ring[index];
    }
    EXPECT_TRUE(IsWindowVisible(m_server.Handle()));
}

TEST_F(SmtpDialog, ThePasswordIsHiddenOnScreen) {
    Open();
    EXPECT_NE(GetWindowLongW(m_server.Control(kPassword), GWL_STYLE) & ES_PASSWORD, 0);
    EXPECT_NE(SendMessageW(m_server.Control(kPassword), EM_GETPASSWORDCHAR, 0, 0), 0);
}

TEST_F(SmtpDialog, TextsAreTranslatedButNotWhatIsStored) {
    const LanguageFolder folder({{L"Outgoing Mail Server", L"Postausgangsserver"},
                                 {L"Account Name:", L"Kontoname:"},
                                 {L"Cancel", L"Abbrechen"},
                                 {L"secret", L"geheim"},
                                 {L"user", L"Benutzer"}});
    Open(kGerman);
    EXPECT_EQ(m_server.Text(), L"Postausgangsserver");
    EXPECT_EQ(m_server.Text(204), L"Kontoname:");
    EXPECT_EQ(m_server.Text(IDCANCEL), L"Abbrechen");
    EXPECT_EQ(m_server.Text(kUserName), L"user");
    EXPECT_EQ(m_server.Text(kPassword), L"secret");
    Close(IDOK);
    EXPECT_EQ(Record().SMTP.Password, L"secret");
}

TEST_F(SmtpDialog, CanBeOpenedAgainAndThenShowsWhatWasStored) {
    Open();
    m_server.EnterText(kAddress, L"smtp.example.net");
    Close(IDOK);
    ASSERT_NO_FATAL_FAILURE(OpenServer());
    EXPECT_EQ(m_server.Text(kAddress), L"smtp.example.net");
}

}  // namespace
}  // namespace vmk::test
