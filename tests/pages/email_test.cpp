#include "resources/ids/email.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/language_folder.h"
#include "tests/support/live_dialog.h"
#include "tests/support/loaded_module.h"
#include "tests/support/wait.h"

namespace vmk::test {
namespace {

constexpr UINT kMethod = IDC_EMAIL_METHOD;
constexpr UINT kZip = IDC_EMAIL_ZIP;
constexpr UINT kFrom = IDC_EMAIL_FROM;
constexpr UINT kTo = IDC_EMAIL_TO;
constexpr UINT kCc = IDC_EMAIL_CC;
constexpr UINT kSubject = IDC_EMAIL_SUBJECT;
constexpr UINT kContent = IDC_EMAIL_CONTENT;
constexpr UINT kServer = IDC_EMAIL_SERVER;
constexpr UINT kEditServer = IDC_EMAIL_EDIT_SERVER;

constexpr wchar_t kDefaultServer[] = L"127.0.0.1";

constexpr wchar_t kNone[] = L"None ";
constexpr wchar_t kLaunch[] = L"Launch Default e-Mail Client";
constexpr wchar_t kThroughClient[] = L"Send Through Default e-Mail Client";
constexpr wchar_t kDirectly[] = L"Send Directly Through SMTP Server";
const std::vector<std::wstring> kMethods = {kNone, kLaunch, kThroughClient, kDirectly};

const std::vector<UINT> kMessageControls = {kZip, 257, 258, kFrom,    259, kTo,
                                            260,  kCc, 261, kSubject, 262, kContent};
const std::vector<UINT> kServerControls = {264, 263, kServer, kEditServer};

// The page of a dialog that was opened on a settings key of its own.
class EmailPage : public testing::Test {
  protected:
    void Open(LANGID language = 0x0409) {
        m_dialog.emplace(
            LiveDialog::Options{.pages = page_bit::kEmail, .language = language, .settings = &m_settings});
        m_page = m_dialog->VisiblePage();
    }
    void OpenWithMethod(int method) {
        m_settings.SetNumber("Email.Type", method);
        Open();
    }
    PrinterSettings::EmailGroup Record() const { return m_dialog->Record().Email; }
    // Stores the record into the settings key, as a host does.
    const ScratchSettings& StoreInRegistry() const {
        m_dialog->Call([&](IPdfPrinterPreferences& object) {
            object.StoreInRegistry(eMail, AutomationString(m_settings.SubKey()).get());
        });
        return m_settings;
    }
    void FocusOn(UINT id) const {
        m_page.Focus(id);
        ASSERT_TRUE(m_dialog->FocusReaches(m_page.Control(id)));
    }
    bool FocusReaches(UINT id) const { return m_dialog->FocusReaches(m_page.Control(id)); }

    ScratchSettings m_settings;
    std::optional<LiveDialog> m_dialog;
    LiveWindow m_page;
};

TEST_F(EmailPage, MissingValuesShowTheDefaults) {
    Open();
    EXPECT_EQ(m_page.Selected(kMethod), kNone);
    EXPECT_FALSE(m_page.IsChecked(kZip));
    for (const UINT id : {kFrom, kTo, kCc, kSubject, kContent}) EXPECT_EQ(m_page.Text(id), L"") << id;
    EXPECT_EQ(m_page.Text(kServer), kDefaultServer);
    EXPECT_FALSE(m_dialog->IsApplyEnabled());
}

TEST_F(EmailPage, ShowsTheStoredValues) {
    PrinterSettings stored;
    stored.Email.Type = 2;
    stored.Email.ZIP = 1;
    stored.Email.From = L"me@example.org";
    stored.Email.To = L"you@example.org";
    stored.Email.CC = L"they@example.org";
    stored.Email.Subject = L"Report";
    stored.Email.Content = L"First line\r\nSecond line";
    stored.Email.SMTP.Address = L"mail.example.org";
    m_settings.Store(stored);
    Open();
    EXPECT_EQ(m_page.Selected(kMethod), kThroughClient);
    EXPECT_TRUE(m_page.IsChecked(kZip));
    EXPECT_EQ(m_page.Text(kFrom), L"me@example.org");
    EXPECT_EQ(m_page.Text(kTo), L"you@example.org");
    EXPECT_EQ(m_page.Text(kCc), L"they@example.org");
    EXPECT_EQ(m_page.Text(kSubject), L"Report");
    EXPECT_EQ(m_page.Text(kContent), L"First line\r\nSecond line");
    EXPECT_EQ(m_page.Text(kServer), L"mail.example.org");
    EXPECT_FALSE(m_dialog->IsApplyEnabled());
}

TEST_F(EmailPage, EachMethodIsListedInOrderAndStoredAsItsPosition) {
    Open();
    ASSERT_EQ(m_page.Items(kMethod), kMethods);
    for (size_t index = kMethods.size(); index-- > 0;) {
        ASSERT_TRUE(m_page.Choose(kMethod, kMethods[index]));
        EXPECT_TRUE(m_dialog->IsApplyEnabled());
        m_dialog->Apply();
        EXPECT_EQ(Record().Type, static_cast<int>(index));
    }
}

TEST_F(EmailPage, TheMethodDecidesWhatIsEnabledBothWhenStoredAndWhenChosen) {
    struct {
        int method;
        bool message;
        bool server;
    } const cases[] = {{0, false, false}, {1, true, false}, {2, true, false}, {3, true, true}};
    const auto expectState = [&](const auto& expected) {
        EXPECT_TRUE(m_page.IsEnabled(kMethod));
        EXPECT_EQ(m_page.AreEnabled(kMessageControls), expected.message) << expected.method;
        EXPECT_EQ(m_page.AreDisabled(kMessageControls), !expected.message) << expected.method;
        EXPECT_EQ(m_page.AreEnabled(kServerControls), expected.server) << expected.method;
        EXPECT_EQ(m_page.AreDisabled(kServerControls), !expected.server) << expected.method;
    };
    for (const auto& stored : cases) {
        OpenWithMethod(stored.method);
        expectState(stored);
        for (const auto& chosen : cases) {
            m_page.Choose(kMethod, kMethods[static_cast<size_t>(chosen.method)]);
            expectState(chosen);
        }
    }
}

TEST_F(EmailPage, AnUnknownMethodSelectsNothingEnablesAllAndIsStoredAsMinusOneEvenOnCancel) {
    OpenWithMethod(4);
    EXPECT_EQ(m_page.Selected(kMethod), L"");
    EXPECT_TRUE(m_page.AreEnabled(kMessageControls));
    EXPECT_TRUE(m_page.AreEnabled(kServerControls));
    EXPECT_EQ(m_dialog->Cancel(), 2);
    EXPECT_EQ(Record().Type, -1);
}

TEST_F(EmailPage, EachFieldEnablesApply) {
    OpenWithMethod(3);
    for (const UINT id : {kFrom, kTo, kCc, kSubject, kContent}) {
        m_page.EnterText(id, L"x");
        EXPECT_TRUE(m_dialog->IsApplyEnabled()) << id;
        m_dialog->Apply();
        ASSERT_FALSE(m_dialog->IsApplyEnabled());
    }
    m_page.Click(kZip);
    EXPECT_TRUE(m_dialog->IsApplyEnabled());
}

TEST_F(EmailPage, EveryValueReachesTheRegistryAfterOk) {
    OpenWithMethod(3);
    m_page.Choose(kMethod, kLaunch);
    m_page.Click(kZip);
    m_page.EnterText(kFrom, L"from");
    m_page.EnterText(kTo, L"to");
    m_page.EnterText(kCc, L"cc");
    m_page.EnterText(kSubject, L"subject");
    m_page.EnterText(kContent, L"content\r\n");
    EXPECT_EQ(m_dialog->Ok(), 1);
    const ScratchSettings& stored = StoreInRegistry();
    EXPECT_EQ(stored.Number("Email.Type"), 1);
    EXPECT_EQ(stored.Number("Email.ZIP"), 1);
    EXPECT_EQ(stored.Text("Email.From"), L"from");
    EXPECT_EQ(stored.Text("Email.To"), L"to");
    EXPECT_EQ(stored.Text("Email.CC"), L"cc");
    EXPECT_EQ(stored.Text("Email.Subject"), L"subject");
    EXPECT_EQ(stored.Text("Email.Content"), L"content\r\n");
    EXPECT_EQ(stored.Text("Email.SMTP.Address"), kDefaultServer);
}

TEST_F(EmailPage, ChangesAreStoredEvenWhenTheDialogIsCancelled) {
    OpenWithMethod(0);
    m_page.Choose(kMethod, kThroughClient);
    m_page.Click(kZip);
    m_page.EnterText(kTo, L"you@example.org");
    m_page.EnterText(kContent, L"Hello");
    EXPECT_EQ(m_dialog->Cancel(), 2);
    EXPECT_EQ(Record().Type, 2);
    EXPECT_EQ(Record().ZIP, 1);
    EXPECT_EQ(Record().To, L"you@example.org");
    EXPECT_EQ(Record().Content, L"Hello");
}

TEST_F(EmailPage, UntouchedValuesAreWrittenBackAsShownByOkAndCancel) {
    m_settings.SetNumber("Email.ZIP", 5);
    for (const bool ok : {true, false}) {
        Open();
        EXPECT_EQ(Record().ZIP, 5);
        ok ? m_dialog->Ok() : m_dialog->Cancel();
        EXPECT_EQ(Record().ZIP, 1);
    }
}

TEST_F(EmailPage, ApplyTwiceStoresBothTimes) {
    OpenWithMethod(1);
    for (const wchar_t* const subject : {L"first", L"second"}) {
        m_page.EnterText(kSubject, subject);
        m_dialog->Apply();
        EXPECT_EQ(Record().Subject, subject);
    }
}

TEST_F(EmailPage, DisabledFieldsKeepTheirValues) {
    m_settings.SetText("Email.To", L"you@example.org");
    OpenWithMethod(1);
    m_page.Choose(kMethod, kNone);
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(Record().To, L"you@example.org");
}

TEST_F(EmailPage, TheContentKeepsItsLineEndsWhateverTheyAre) {
    for (const wchar_t* const content :
         {L"a\r\nb\r\n\r\nc", L"a\nb", L"a\rb", L"a\r\r\nb", L"\r\n", L"a\tb"}) {
        m_settings.SetText("Email.Content", content);
        OpenWithMethod(1);
        EXPECT_EQ(m_dialog->Ok(), 1);
        EXPECT_EQ(Record().Content, content);
        EXPECT_EQ(StoreInRegistry().Text("Email.Content"), content);
    }
}

TEST_F(EmailPage, ALongContentSurvivesAndCanBeContinuedByTyping) {
    std::wstring content;
    while (content.size() < 100'000)
        content += L"Another line of the message, number " + std::to_wstring(content.size()) + L".\r\n";
    m_settings.SetText("Email.Content", content);
    OpenWithMethod(1);
    FocusOn(kContent);
    SendMessageW(m_page.Control(kContent), EM_SETSEL, content.size(), static_cast<LPARAM>(content.size()));
    m_dialog->TypeText(L"end");
    EXPECT_TRUE(WaitUntil([&] { return m_page.Text(kContent).size() == content.size() + 3; }));
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(Record().Content, content + L"end");
    EXPECT_EQ(StoreInRegistry().Text("Email.Content"), content + L"end");
}

TEST_F(EmailPage, EnterStartsANewLineInTheContent) {
    OpenWithMethod(1);
    FocusOn(kContent);
    m_dialog->TypeText(L"a");
    m_dialog->PressKey(VK_RETURN);
    m_dialog->TypeText(L"b");
    EXPECT_TRUE(WaitUntil([&] { return m_page.Text(kContent) == L"a\r\nb"; }));
    EXPECT_TRUE(m_dialog->IsApplyEnabled());
}

TEST_F(EmailPage, TheContentScrollsVertically) {
    Open();
    const LONG style = GetWindowLongW(m_page.Control(kContent), GWL_STYLE);
    EXPECT_EQ(style & (ES_MULTILINE | ES_WANTRETURN | WS_VSCROLL), ES_MULTILINE | ES_WANTRETURN | WS_VSCROLL);
    EXPECT_EQ(style & ES_AUTOHSCROLL, 0);
}

TEST_F(EmailPage, EscapeInTheContentCancelsTheDialog) {
    OpenWithMethod(1);
    FocusOn(kContent);
    m_dialog->PressKey(VK_ESCAPE);
    EXPECT_EQ(m_dialog->WaitForResult(), IDCANCEL);
}

TEST_F(EmailPage, TheServerCannotBeTypedInto) {
    OpenWithMethod(3);
    FocusOn(kServer);
    m_dialog->TypeText(L"x");
    m_dialog->PressKey(VK_TAB);
    ASSERT_TRUE(FocusReaches(kEditServer));
    EXPECT_EQ(m_page.Text(kServer), kDefaultServer);
}

TEST_F(EmailPage, TabGoesThroughThePageInOrder) {
    OpenWithMethod(3);
    const std::vector<UINT> order = {kMethod,  kZip,     kFrom,   kTo,        kCc,
                                     kSubject, kContent, kServer, kEditServer};
    FocusOn(order.front());
    for (size_t index = 1; index < order.size(); ++index) {
        m_dialog->PressKey(VK_TAB);
        EXPECT_TRUE(FocusReaches(order[index])) << order[index];
    }
}

TEST_F(EmailPage, TabGoesRoundWhatTheMethodEnables) {
    OpenWithMethod(2);
    FocusOn(kContent);
    m_dialog->PressKey(VK_TAB);
    EXPECT_TRUE(FocusReaches(kMethod));
}

TEST_F(EmailPage, TextsAndItemsAreTranslatedWhileValuesAndContentsStay) {
    const LanguageFolder folder(
        {{L"None ", L"Keine"}, {L"None", L"Ohne"}, {L"Edit...", L"Bearbeiten..."}, {L"Report", L"Bericht"}});
    m_settings.SetText("Email.Subject", L"Report");
    m_settings.SetText("Email.Content", L"Report");
    Open(kGerman);
    EXPECT_EQ(m_page.Selected(kMethod), L"Keine");
    EXPECT_EQ(m_page.Text(kEditServer), L"Bearbeiten...");
    EXPECT_EQ(m_page.Text(kSubject), L"Report");
    EXPECT_EQ(m_page.Text(kContent), L"Report");
    EXPECT_EQ(m_dialog->Ok(), 1);
    EXPECT_EQ(Record().Type, 0);
}

TEST_F(EmailPage, OfTwoMethodsWithTheSameTranslationTheFirstOnesValueIsStored) {
    const LanguageFolder folder({{kLaunch, L"Mailprogramm"}, {kThroughClient, L"Mailprogramm"}});
    m_settings.SetNumber("Email.Type", 2);
    Open(kGerman);
    EXPECT_EQ(m_page.Selected(kMethod), L"Mailprogramm");
    EXPECT_EQ(m_dialog->Cancel(), 2);
    EXPECT_EQ(Record().Type, 1);
}

}  // namespace
}  // namespace vmk::test
