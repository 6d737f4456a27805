#include <windows.h>

#include <gtest/gtest.h>

#include <span>
#include <string>

#include "resources/ids/digital_signature.h"
#include "resources/ids/document_info.h"
#include "resources/ids/email.h"
#include "resources/ids/main.h"
#include "resources/ids/smtp.h"
#include "tests/faults/opening.h"
#include "tests/support/import_faults.h"
#include "tests/support/loaded_module.h"
#include "tests/support/page_fixture.h"
#include "tests/support/scratch_settings.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

class StoreWithAFault : public testing::Test {
  protected:
    StoreWithAFault() : m_object(m_module.CreatePreferences()), m_faults(m_module.get()) {}

    // Has the dialog opened on that page with what was loaded, each of the boxes filled with a text, and some
    // call for memory fail while they are applied.
    Opening ApplyWith(PdfPrinterDialogPage page, std::span<const int> boxes, const std::wstring& text,
                      long call) {
        Load(*m_object, m_loaded);
        m_object->DisablePage(AllPages);
        m_object->EnablePage(page);
        const Opening opening = OpenAndEnd(*m_object, Ending::kApplyThenCancel, [&](HWND dialog) {
            for (const int box : boxes) SetWindowTextW(FindVisibleControl(dialog, box), text.c_str());
            m_faults.Fail({.function = "memory", .first = call});
        });
        m_faults.Stop();
        return opening;
    }

    const ComApartment m_apartment;
    const LoadedModule m_module;
    const ComPointer<IPdfPrinterPreferences> m_object;
    ImportFaults m_faults;
    PrinterSettings m_loaded;
};

constexpr int kTexts[] = {IDC_DOCINFO_TITLE, IDC_DOCINFO_SUBJECT, IDC_DOCINFO_AUTHOR, IDC_DOCINFO_KEYWORDS,
                          IDC_DOCINFO_CREATOR};

TEST_F(StoreWithAFault, LeavesTheSettingsOfThePageAsTheyWereAndApplyEnabled) {
    const std::wstring typed = L"a text that needs memory of its own, as long as it is";
    ApplyWith(DocumentInfo, kTexts, typed, LONG_MAX);
    const long calls = m_faults.Calls();
    ASSERT_GT(calls, 5);
    const PrinterSettings applied = RecordOf(*m_object);
    EXPECT_EQ(applied.Info.Title, typed);
    EXPECT_EQ(applied.Info.Keywords, typed);

    int failures = 0;
    for (long call = 1; call <= calls; ++call) {
        const Opening opening = ApplyWith(DocumentInfo, kTexts, typed, call);
        EXPECT_EQ(RecordOf(*m_object), opening.keptChanges ? m_loaded : applied) << call;
        failures += opening.keptChanges ? 1 : 0;
    }
    EXPECT_GT(failures, 0);
}

TEST_F(StoreWithAFault, ReadsNumbersWithoutMemory) {
    constexpr int kLengths[] = {IDC_SIGNATURE_LEFT};
    m_loaded.Security.Digisig.Enable = 1;
    ApplyWith(DigitalSign, kLengths, L"12.5", LONG_MAX);
    const long calls = m_faults.Calls();
    ASSERT_GT(calls, 5);
    const PrinterSettings applied = RecordOf(*m_object);
    EXPECT_EQ(applied.Security.Digisig.Left, 125);
    for (long call = 1; call <= calls; ++call) {
        const Opening opening = ApplyWith(DigitalSign, kLengths, L"12.5", call);
        EXPECT_EQ(opening.violations, 0) << call << ": " << opening.whereViolated;
        EXPECT_EQ(RecordOf(*m_object), opening.keptChanges ? m_loaded : applied) << call;
    }
}

TEST_F(StoreWithAFault, LeavesATextOfTheRegistryThatCannotBeConverted) {
    PrinterSettings before;
    before.Info.Title = before.Info.Subject = L"before";
    PrinterSettings after;
    after.Info.Title = after.Info.Subject = L"after";
    const RootSettings root;  // where a sub-key leads that cannot be converted
    const ScratchSettings key;
    const AutomationString subKey(key.SubKey());
    Load(*m_object, after);
    long kept = 0;
    for (long call = 1;; ++call) {
        key.Store(before);
        m_faults.Fail({.function = "WideCharToMultiByte", .first = call});
        m_object->StoreInRegistry(DocumentInfo, subKey.get());
        m_faults.Stop();
        if (!m_faults.HaveFailed()) break;
        const PrinterSettings stored = key.Load();
        for (const std::wstring& text : {stored.Info.Title, stored.Info.Subject}) {
            EXPECT_TRUE(text == L"before" || text == L"after") << call;
            kept += text == L"before" ? 1 : 0;
        }
    }
    EXPECT_EQ(key.Load(), after);
    EXPECT_GT(kept, 0);
}

class ApplyWithAFault : public PageTest {
  protected:
    ApplyWithAFault() : PageTest(page_bit::kDocumentInfo) {}
};

TEST_F(ApplyWithAFault, AnswersItsClickAsEver) {
    Open();
    page.EnterText(IDC_DOCINFO_TITLE, L"a text that needs memory of its own, as long as it is");
    HWND apply = dialog->Main().Control(IDC_MAIN_APPLY);
    const auto click = [&] {
        return SendMessageW(dialog->Main().Handle(), WM_COMMAND, MAKEWPARAM(IDC_MAIN_APPLY, BN_CLICKED),
                            reinterpret_cast<LPARAM>(apply));
    };
    {
        ImportFaults faults(GetModuleHandleW(L"vmkctrl.dll"));
        faults.Fail({.function = "memory", .lasting = true});
        EXPECT_EQ(click(), 0);
        faults.Stop();
    }
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_EQ(click(), 0);
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

// The mail server's dialog, which stands over the main one.
class MailServerWithAFault : public PageTest {
  protected:
    MailServerWithAFault() : PageTest(page_bit::kEmail) { stored.Email.Type = 3; }
};

TEST_F(MailServerWithAFault, StaysOpenOnOkUntilWhatIsTypedCanBeStored) {
    const std::wstring typed = L"an.address.that.needs.memory.of.its.own.example";
    Open();
    const LiveWindow server = OpenModal(IDC_EMAIL_EDIT_SERVER);
    ASSERT_TRUE(server);
    server.EnterText(IDC_SMTP_ADDRESS, typed);
    {
        ImportFaults faults(GetModuleHandleW(L"vmkctrl.dll"));
        faults.Fail({.function = "memory", .lasting = true});
        server.Click(IDOK);
        faults.Stop();
        EXPECT_TRUE(faults.HaveFailed());
    }
    EXPECT_TRUE(IsWindowVisible(server.Handle()));
    EXPECT_EQ(dialog->Record(), stored);
    CloseModal(server, IDOK);
    EXPECT_EQ(dialog->Record().Email.SMTP.Address, typed);
}

TEST_F(MailServerWithAFault, CanBeCancelledWhatsoeverFails) {
    Open();
    const LiveWindow server = OpenModal(IDC_EMAIL_EDIT_SERVER);
    ASSERT_TRUE(server);
    ImportFaults faults(GetModuleHandleW(L"vmkctrl.dll"));
    faults.Fail({.function = "memory", .lasting = true});
    CloseModal(server, IDCANCEL);
    faults.Stop();
    EXPECT_EQ(dialog->Record(), stored);
}

}  // namespace
}  // namespace vmk::test
