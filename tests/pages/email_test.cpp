#include "resources/ids/email.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/language_folder.h"
#include "tests/support/page_fixture.h"

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

class EmailPage : public PageTest {
  protected:
    EmailPage() : PageTest(page_bit::kEmail) {}

    void OpenWithMethod(int method) {
        settings.SetNumber("Email.Type", method);
        OpenOn(settings);
    }
    PrinterSettings::EmailGroup Record() const { return dialog->Record().Email; }
};

TEST_F(EmailPage, MissingValuesShowTheDefaults) {
    OpenOn(settings);
    EXPECT_EQ(page.Selected(kMethod), kNone);
    EXPECT_FALSE(page.IsChecked(kZip));
    for (const UINT id : {kFrom, kTo, kCc, kSubject, kContent}) EXPECT_EQ(page.Text(id), L"") << id;
    EXPECT_EQ(page.Text(kServer), kDefaultServer);
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(EmailPage, ShowsTheStoredValues) {
    stored.Email.Type = 2;
    stored.Email.ZIP = 1;
    stored.Email.From = L"me@example.org";
    stored.Email.To = L"you@example.org";
    stored.Email.CC = L"they@example.org";
    stored.Email.Subject = L"Report";
    stored.Email.Content = L"First line\r\nSecond line";
    stored.Email.SMTP.Address = L"mail.example.org";
    Open();
    EXPECT_EQ(page.Selected(kMethod), kThroughClient);
    EXPECT_TRUE(page.IsChecked(kZip));
    EXPECT_EQ(page.Text(kFrom), L"me@example.org");
    EXPECT_EQ(page.Text(kTo), L"you@example.org");
    EXPECT_EQ(page.Text(kCc), L"they@example.org");
    EXPECT_EQ(page.Text(kSubject), L"Report");
    EXPECT_EQ(page.Text(kContent), L"First line\r\nSecond line");
    EXPECT_EQ(page.Text(kServer), L"mail.example.org");
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(EmailPage, EachMethodIsListedInOrderAndStoredAsItsPosition) {
    OpenOn(settings);
    ASSERT_EQ(page.Items(kMethod), kMethods);
    for (size_t index = kMethods.size(); index-- > 0;) {
        ASSERT_TRUE(page.Choose(kMethod, kMethods[index]));
        EXPECT_TRUE(dialog->IsApplyEnabled());
        dialog->Apply();
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
        EXPECT_TRUE(page.IsEnabled(kMethod));
        EXPECT_EQ(page.AreEnabled(kMessageControls), expected.message) << expected.method;
        EXPECT_EQ(page.AreDisabled(kMessageControls), !expected.message) << expected.method;
        EXPECT_EQ(page.AreEnabled(kServerControls), expected.server) << expected.method;
        EXPECT_EQ(page.AreDisabled(kServerControls), !expected.server) << expected.method;
    };
    for (const auto& each : cases) {
        OpenWithMethod(each.method);
        expectState(each);
        for (const auto& chosen : cases) {
            page.Choose(kMethod, kMethods[static_cast<size_t>(chosen.method)]);
            expectState(chosen);
        }
    }
}

TEST_F(EmailPage, AnUnknownMethodSelectsNothingEnablesAllAndIsStoredAsMinusOneEvenOnCancel) {
    OpenWithMethod(4);
    EXPECT_EQ(page.Selected(kMethod), L"");
    EXPECT_TRUE(page.AreEnabled(kMessageControls));
    EXPECT_TRUE(page.AreEnabled(kServerControls));
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(Record().Type, -1);
}

TEST_F(EmailPage, EachFieldEnablesApply) {
    OpenWithMethod(3);
    for (const UINT id : {kFrom, kTo, kCc, kSubject, kContent}) {
        page.EnterText(id, L"x");
        EXPECT_TRUE(dialog->IsApplyEnabled()) << id;
        dialog->Apply();
        ASSERT_FALSE(dialog->IsApplyEnabled());
    }
    page.Click(kZip);
    EXPECT_TRUE(dialog->IsApplyEnabled());
}

TEST_F(EmailPage, EveryValueReachesTheRegistryAfterOk) {
    OpenWithMethod(3);
    page.Choose(kMethod, kLaunch);
    page.Click(kZip);
    page.EnterText(kFrom, L"from");
    page.EnterText(kTo, L"to");
    page.EnterText(kCc, L"cc");
    page.EnterText(kSubject, L"subject");
    page.EnterText(kContent, L"content\r\n");
    EXPECT_EQ(dialog->Ok(), 1);
    StoreInRegistry(settings);
    EXPECT_EQ(settings.Number("Email.Type"), 1);
    EXPECT_EQ(settings.Number("Email.ZIP"), 1);
    EXPECT_EQ(settings.Text("Email.From"), L"from");
    EXPECT_EQ(settings.Text("Email.To"), L"to");
    EXPECT_EQ(settings.Text("Email.CC"), L"cc");
    EXPECT_EQ(settings.Text("Email.Subject"), L"subject");
    EXPECT_EQ(settings.Text("Email.Content"), L"content\r\n");
    EXPECT_EQ(settings.Text("Email.SMTP.Address"), kDefaultServer);
}

TEST_F(EmailPage, ChangesAreStoredEvenWhenTheDialogIsCancelled) {
    OpenWithMethod(0);
    page.Choose(kMethod, kThroughClient);
    page.Click(kZip);
    page.EnterText(kTo, L"you@example.org");
    page.EnterText(kContent, L"Hello");
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(Record().Type, 2);
    EXPECT_EQ(Record().ZIP, 1);
    EXPECT_EQ(Record().To, L"you@example.org");
    EXPECT_EQ(Record().Content, L"Hello");
}

TEST_F(EmailPage, UntouchedValuesAreWrittenBackAsShownByOkAndCancel) {
    settings.SetNumber("Email.ZIP", 5);
    for (const bool ok : {true, false}) {
        OpenOn(settings);
        EXPECT_EQ(Record().ZIP, 5);
        ok ? dialog->Ok() : dialog->Cancel();
        EXPECT_EQ(Record().ZIP, 1);
    }
}

TEST_F(EmailPage, ApplyTwiceStoresBothTimes) {
    OpenWithMethod(1);
    for (const wchar_t* const subject : {L"first", L"second"}) {
        page.EnterText(kSubject, subject);
        dialog->Apply();
        EXPECT_EQ(Record().Subject, subject);
    }
}

TEST_F(EmailPage, DisabledFieldsKeepTheirValues) {
    settings.SetText("Email.To", L"you@example.org");
    OpenWithMethod(1);
    page.Choose(kMethod, kNone);
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(Record().To, L"you@example.org");
}

TEST_F(EmailPage, TheContentKeepsItsLineEndsWhateverTheyAre) {
    for (const wchar_t* const content :
         {L"a\r\nb\r\n\r\nc", L"a\nb", L"a\rb", L"a\r\r\nb", L"\r\n", L"a\tb"}) {
        settings.SetText("Email.Content", content);
        OpenWithMethod(1);
        EXPECT_EQ(dialog->Ok(), 1);
        EXPECT_EQ(Record().Content, content);
        StoreInRegistry(settings);
        EXPECT_EQ(settings.Text("Email.Content"), content);
    }
}

TEST_F(EmailPage, ALongContentSurvivesAndCanBeContinuedByTyping) {
    std::wstring content;
    while (content.size() < 100'000)
        content += L"Another line of the message, number " + std::to_wstring(content.size()) + L".\r\n";
    settings.SetText("Email.Content", content);
    OpenWithMethod(1);
    FocusOn(kContent);
    SendMessageW(page.Control(kContent), EM_SETSEL, content.size(), static_cast<LPARAM>(content.size()));
    dialog->TypeText(L"end");
    EXPECT_TRUE(WaitUntil([&] { return page.Text(kContent).size() == content.size() + 3; }));
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(Record().Content, content + L"end");
    StoreInRegistry(settings);
    EXPECT_EQ(settings.Text("Email.Content"), content + L"end");
}

TEST_F(EmailPage, EnterStartsANewLineInTheContent) {
    OpenWithMethod(1);
    FocusOn(kContent);
    dialog->TypeText(L"a");
    dialog->PressKey(VK_RETURN);
    dialog->TypeText(L"b");
    EXPECT_TRUE(WaitUntil([&] { return page.Text(kContent) == L"a\r\nb"; }));
    EXPECT_TRUE(dialog->IsApplyEnabled());
}

TEST_F(EmailPage, TheContentScrollsVertically) {
    OpenOn(settings);
    const LONG style = GetWindowLongW(page.Control(kContent), GWL_STYLE);
    EXPECT_EQ(style & (ES_MULTILINE | ES_WANTRETURN | WS_VSCROLL), ES_MULTILINE | ES_WANTRETURN | WS_VSCROLL);
    EXPECT_EQ(style & ES_AUTOHSCROLL, 0);
}

TEST_F(EmailPage, EscapeInTheContentCancelsTheDialog) {
    OpenWithMethod(1);
    FocusOn(kContent);
    dialog->PressKey(VK_ESCAPE);
    EXPECT_EQ(dialog->WaitForResult(), IDCANCEL);
}

TEST_F(EmailPage, TheServerCannotBeTypedInto) {
    OpenWithMethod(3);
    FocusOn(kServer);
    dialog->TypeText(L"x");
    dialog->PressKey(VK_TAB);
    ASSERT_TRUE(FocusReaches(kEditServer));
    EXPECT_EQ(page.Text(kServer), kDefaultServer);
}

TEST_F(EmailPage, TabGoesThroughThePageInOrder) {
    OpenWithMethod(3);
    const std::vector<UINT> order = {kMethod,  kZip,     kFrom,   kTo,        kCc,
                                     kSubject, kContent, kServer, kEditServer};
    FocusOn(order.front());
    for (size_t index = 1; index < order.size(); ++index) {
        dialog->PressKey(VK_TAB);
        EXPECT_TRUE(FocusReaches(order[index])) << order[index];
    }
}

TEST_F(EmailPage, TabGoesRoundWhatTheMethodEnables) {
    OpenWithMethod(2);
    FocusOn(kContent);
    dialog->PressKey(VK_TAB);
    EXPECT_TRUE(FocusReaches(kMethod));
}

TEST_F(EmailPage, TextsAndItemsAreTranslatedWhileValuesAndContentsStay) {
    const LanguageFolder folder(
        {{L"None ", L"Keine"}, {L"None", L"Ohne"}, {L"Edit...", L"Bearbeiten..."}, {L"Report", L"Bericht"}});
    settings.SetText("Email.Subject", L"Report");
    settings.SetText("Email.Content", L"Report");
    OpenOn(settings, kGerman);
    EXPECT_EQ(page.Selected(kMethod), L"Keine");
    EXPECT_EQ(page.Text(kEditServer), L"Bearbeiten...");
    EXPECT_EQ(page.Text(kSubject), L"Report");
    EXPECT_EQ(page.Text(kContent), L"Report");
    EXPECT_EQ(dialog->Ok(), 1);
    EXPECT_EQ(Record().Type, 0);
}

TEST_F(EmailPage, OfTwoMethodsWithTheSameTranslationTheFirstOnesValueIsStored) {
    const LanguageFolder folder({{kLaunch, L"Mailprogramm"}, {kThroughClient, L"Mailprogramm"}});
    settings.SetNumber("Email.Type", 2);
    OpenOn(settings, kGerman);
    EXPECT_EQ(page.Selected(kMethod), L"Mailprogramm");
    EXPECT_EQ(dialog->Cancel(), 2);
    EXPECT_EQ(Record().Type, 1);
}

}  // namespace
}  // namespace vmk::test
