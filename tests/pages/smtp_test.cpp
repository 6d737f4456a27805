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
#include "tests/support/page_fixture.h"

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

// The server dialog, opened from the e-mail page.
class SmtpDialog : public PageTest {
  protected:
    SmtpDialog() : PageTest(page_bit::kEmail) {
        stored.Email.Type = 3;
        stored.Email.SMTP = {.Address = L"mail.example.org",
                             .UserName = L"user",
                             .Password = L"secret",
                             .Port = 587,
                             .RequiresAuthentication = 1};
        stored.Email.STMP.UseSSL = 1;
    }

    void Open(LANGID language = kEnglish) {
        PageTest::Open(language);
        OpenServer();
    }
    void OpenServer() {
        server = OpenModal(IDC_EMAIL_EDIT_SERVER);
        ASSERT_TRUE(server);
    }
    void Close(UINT button) const { CloseModal(server, button); }
    PrinterSettings::EmailGroup Record() const { return dialog->Record().Email; }
    void FocusOn(UINT id) const {
        server.Focus(id);
        ASSERT_TRUE(dialog->FocusReaches(server.Control(id)));
    }
    bool FocusReaches(UINT id) const { return dialog->FocusReaches(server.Control(id)); }

    LiveWindow server;
};

TEST_F(SmtpDialog, ShowsTheStoredServer) {
    Open();
    EXPECT_EQ(server.Text(), L"Outgoing Mail Server");
    EXPECT_EQ(server.Text(kAddress), L"mail.example.org");
    EXPECT_EQ(server.Text(kPort), L"587");
    EXPECT_TRUE(server.IsChecked(kAuthentication));
    EXPECT_EQ(server.Text(kUserName), L"user");
    EXPECT_EQ(server.Text(kPassword), L"secret");
    EXPECT_TRUE(server.IsChecked(kSecure));
}

TEST_F(SmtpDialog, APortOf25ShowsAs25AndIsStoredAs25) {
    stored.Email.SMTP.Port = 25;
    Open();
    EXPECT_EQ(server.Text(kPort), L"25");
    Close(IDOK);
    EXPECT_EQ(Record().SMTP.Port, 25);
}

TEST_F(SmtpDialog, IsModalOverTheActiveWindow) {
    Open();
    EXPECT_EQ(GetWindow(server.Handle(), GW_OWNER), dialog->Main().Handle());
    EXPECT_FALSE(IsWindowEnabled(dialog->Main().Handle()));
}

TEST_F(SmtpDialog, OkStoresAtOnceAndUpdatesTheSummary) {
    Open();
    server.EnterText(kAddress, L"smtp.example.net");
    server.EnterTextAndLeave(kPort, L"465", kAddress);
    server.EnterText(kUserName, L"other");
    server.EnterText(kPassword, L"changed");
    server.Click(kSecure);
    Close(IDOK);
    EXPECT_EQ(page.Text(IDC_EMAIL_SERVER), L"smtp.example.net");
    const PrinterSettings::EmailGroup kept = Record();
    EXPECT_EQ(kept.SMTP.Address, L"smtp.example.net");
    EXPECT_EQ(kept.SMTP.Port, 465);
    EXPECT_EQ(kept.SMTP.RequiresAuthentication, 1);
    EXPECT_EQ(kept.SMTP.UserName, L"other");
    EXPECT_EQ(kept.SMTP.Password, L"changed");
    EXPECT_EQ(kept.STMP.UseSSL, 0);
}

TEST_F(SmtpDialog, WhatOkStoredSurvivesCancellingTheMainDialog) {
    Open();
    server.EnterText(kAddress, L"smtp.example.net");
    server.EnterText(kPassword, L"changed");
    Close(IDOK);
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(Record().SMTP.Address, L"smtp.example.net");
    EXPECT_EQ(Record().SMTP.Password, L"changed");
}

TEST_F(SmtpDialog, CancelStoresNothingAndLeavesTheSummary) {
    Open();
    const PrinterSettings::EmailGroup before = Record();
    server.EnterText(kAddress, L"smtp.example.net");
    server.EnterTextAndLeave(kPort, L"465", kAddress);
    server.EnterText(kUserName, L"other");
    server.EnterText(kPassword, L"changed");
    server.Click(kSecure);
    server.Click(kAuthentication);
    Close(IDCANCEL);
    EXPECT_EQ(Record(), before);
    EXPECT_EQ(page.Text(IDC_EMAIL_SERVER), L"mail.example.org");
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(Record(), before);
}

TEST_F(SmtpDialog, ItsCloseBoxCancels) {
    Open();
    server.EnterText(kAddress, L"smtp.example.net");
    PostMessageW(server.Handle(), WM_SYSCOMMAND, SC_CLOSE, 0);
    ASSERT_TRUE(dialog->WaitUntilClosed(server));
    EXPECT_EQ(Record().SMTP.Address, L"mail.example.org");
}

TEST_F(SmtpDialog, EscapeInAFieldCancelsItAndNotTheMainDialog) {
    Open();
    server.EnterText(kAddress, L"other");
    FocusOn(kAddress);
    dialog->PressKey(VK_ESCAPE);
    ASSERT_TRUE(dialog->WaitUntilClosed(server));
    EXPECT_EQ(Record().SMTP.Address, L"mail.example.org");
    EXPECT_TRUE(IsWindow(dialog->Main().Handle()));
}

TEST_F(SmtpDialog, OpeningAndCancellingIsNoChange) {
    Open();
    EXPECT_FALSE(dialog->IsApplyEnabled());
    Close(IDCANCEL);
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(SmtpDialog, OpeningKeepsAnEarlierChangeInMind) {
    Open();
    Close(IDCANCEL);
    page.Click(IDC_EMAIL_ZIP);
    ASSERT_NO_FATAL_FAILURE(OpenServer());
    EXPECT_TRUE(dialog->IsApplyEnabled());
}

TEST_F(SmtpDialog, EachFieldEnablesTheMainDialogsApply) {
    for (const UINT id : {kAddress, kPort, kUserName, kPassword}) {
        Open();
        server.EnterText(id, L"1");
        EXPECT_TRUE(dialog->IsApplyEnabled()) << id;
    }
    for (const UINT id : {kAuthentication, kSecure}) {
        Open();
        server.Click(id);
        EXPECT_TRUE(dialog->IsApplyEnabled()) << id;
    }
    Open();
    server.SpinUp(kSpin);
    EXPECT_TRUE(dialog->IsApplyEnabled());
}

TEST_F(SmtpDialog, EveryValueReachesTheRegistry) {
    Open();
    server.Click(kSecure);
    Close(IDOK);
    EXPECT_EQ(dialog->Ok(), 1);
    StoreInRegistry(settings);
    EXPECT_EQ(settings.Text("Email.SMTP.Address"), L"mail.example.org");
    EXPECT_EQ(settings.Number("Email.SMTP.Port"), 587);
    EXPECT_EQ(settings.Number("Email.SMTP.RequiresAuthentication"), 1);
    EXPECT_EQ(settings.Text("Email.SMTP.UserName"), L"user");
    EXPECT_EQ(settings.Text("Email.SMTP.Password"), L"secret");
    EXPECT_EQ(settings.Number("Email.STMP.UseSSL"), 0);
}

TEST_F(SmtpDialog, AuthenticationSwitchesTheLogonFieldsAsStoredAndAsClicked) {
    for (const int required : {0, 1}) {
        stored.Email.SMTP.RequiresAuthentication = required;
        Open();
        EXPECT_EQ(server.AreEnabled(kLogonControls), required == 1);
        EXPECT_EQ(server.AreDisabled(kLogonControls), required == 0);
        server.Click(kAuthentication);
        EXPECT_EQ(server.AreEnabled(kLogonControls), required == 0);
        EXPECT_EQ(server.AreDisabled(kLogonControls), required == 1);
    }
}

TEST_F(SmtpDialog, WithoutAuthenticationTheLogonValuesAreKeptAndStored) {
    Open();
    server.EnterText(kUserName, L"other");
    server.Click(kAuthentication);
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
        server.EnterText(kPort, step.from);
        step.up ? server.SpinUp(kSpin) : server.SpinDown(kSpin);
        EXPECT_EQ(server.Text(kPort), step.to) << step.from;
    }
    Close(IDOK);
    EXPECT_EQ(Record().SMTP.Port, 1);
}

TEST_F(SmtpDialog, ATypedPortOutsideItsLimitsIsRefusedAndKeepsTheFocus) {
    for (const wchar_t* const typed : {L"0", L"65536", L"-1", L"", L"abc", L"nan", L"inf"}) {
        Open();
        server.EnterTextAndLeave(kPort, typed, kAddress);
        EXPECT_EQ(server.Text(kPort), L"587") << typed;
        EXPECT_EQ(dialog->Focused(), server.Control(kPort)) << typed;
    }
}

TEST_F(SmtpDialog, TheLimitsOfThePortCanBeTyped) {
    Open();
    for (const int port : {1, 65535}) {
        server.EnterTextAndLeave(kPort, std::to_wstring(port), kAddress);
        Close(IDOK);
        EXPECT_EQ(Record().SMTP.Port, port);
        ASSERT_NO_FATAL_FAILURE(OpenServer());
    }
}

TEST_F(SmtpDialog, AFractionIsShownRoundedAndStoredTruncated) {
    Open();
    server.EnterTextAndLeave(kPort, L"25.7", kAddress);
    EXPECT_EQ(server.Text(kPort), L"26");
    Close(IDOK);
    EXPECT_EQ(Record().SMTP.Port, 25);
}

TEST_F(SmtpDialog, AStoredPortOutsideItsLimitsStaysUntilItIsEdited) {
    for (const int port : {0, -1, 70000}) {
        stored.Email.SMTP.Port = port;
        Open();
        EXPECT_EQ(server.Text(kPort), std::to_wstring(port));
        Close(IDOK);
        EXPECT_EQ(Record().SMTP.Port, port);
    }
}

TEST_F(SmtpDialog, APortStillBeingTypedIsStoredByAClickOnOk) {
    Open();
    FocusOn(kPort);
    server.EnterText(kPort, L"2525");
    server.MouseClick(IDOK);
    ASSERT_TRUE(dialog->WaitUntilClosed(server));
    EXPECT_EQ(Record().SMTP.Port, 2525);
}

TEST_F(SmtpDialog, TabGoesRoundTheFields) {
    Open();
    const std::vector<UINT> ring = {kAddress,  kPort,   kAuthentication, kUserName,
                                    kPassword, kSecure, kAddress};
    FocusOn(ring.front());
    for (size_t index = 1; index < ring.size(); ++index) {
        dialog->PressKey(VK_TAB);
        EXPECT_TRUE(FocusReaches(ring[index])) << ring[index];
    }
}

TEST_F(SmtpDialog, EnterGoesRoundTheFieldsLikeTabAndClosesNothing) {
    Open();
    const std::vector<UINT> ring = {kAddress,  kPort,   kAuthentication, kUserName,
                                    kPassword, kSecure, kAddress};
    FocusOn(ring.front());
    for (size_t index = 1; index < ring.size(); ++index) {
        dialog->PressKey(VK_RETURN);
        EXPECT_TRUE(FocusReaches(ring[index])) << ring[index];
    }
    EXPECT_TRUE(IsWindowVisible(server.Handle()));
}

TEST_F(SmtpDialog, ThePasswordIsHiddenOnScreen) {
    Open();
    EXPECT_NE(GetWindowLongW(server.Control(kPassword), GWL_STYLE) & ES_PASSWORD, 0);
    EXPECT_NE(SendMessageW(server.Control(kPassword), EM_GETPASSWORDCHAR, 0, 0), 0);
}

TEST_F(SmtpDialog, TextsAreTranslatedButNotWhatIsStored) {
    const LanguageFolder folder({{L"Outgoing Mail Server", L"Postausgangsserver"},
                                 {L"Account Name:", L"Kontoname:"},
                                 {L"Cancel", L"Abbrechen"},
                                 {L"secret", L"geheim"},
                                 {L"user", L"Benutzer"}});
    Open(kGerman);
    EXPECT_EQ(server.Text(), L"Postausgangsserver");
    EXPECT_EQ(server.Text(204), L"Kontoname:");
    EXPECT_EQ(server.Text(IDCANCEL), L"Abbrechen");
    EXPECT_EQ(server.Text(kUserName), L"user");
    EXPECT_EQ(server.Text(kPassword), L"secret");
    Close(IDOK);
    EXPECT_EQ(Record().SMTP.Password, L"secret");
}

TEST_F(SmtpDialog, CanBeOpenedAgainAndThenShowsWhatWasStored) {
    Open();
    server.EnterText(kAddress, L"smtp.example.net");
    Close(IDOK);
    ASSERT_NO_FATAL_FAILURE(OpenServer());
    EXPECT_EQ(server.Text(kAddress), L"smtp.example.net");
}

}  // namespace
}  // namespace vmk::test
