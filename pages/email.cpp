#include "resources/ids/email.h"

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_text.h"
#include "controls/plain_text.h"
#include "pages/page.h"
#include "pages/pages.h"
#include "pages/smtp.h"

namespace vmk {
namespace {

constexpr std::int32_t kNone[] = {0};
constexpr std::int32_t kThroughClient[] = {1, 2};
constexpr std::int32_t kDirectly[] = {3};

constexpr UINT kAllControls[] = {
    // The message.
    IDC_EMAIL_ZIP, IDC_EMAIL_MESSAGE_GROUP, IDC_EMAIL_FROM_LABEL, IDC_EMAIL_FROM, IDC_EMAIL_TO_LABEL,
    IDC_EMAIL_TO, IDC_EMAIL_CC_LABEL, IDC_EMAIL_CC, IDC_EMAIL_SUBJECT_LABEL, IDC_EMAIL_SUBJECT,
    IDC_EMAIL_CONTENT_LABEL, IDC_EMAIL_CONTENT,
    // The server.
    IDC_EMAIL_SERVER_GROUP, IDC_EMAIL_SERVER_LABEL, IDC_EMAIL_SERVER, IDC_EMAIL_EDIT_SERVER};
constexpr std::span<const UINT> kMessageControls = std::span(kAllControls).first<12>();
constexpr std::span<const UINT> kServerControls = std::span(kAllControls).last<4>();

constexpr ComboRule kMethodRules[] = {
    {.ids = kAllControls, .values = kNone, .enable = false},
    {.ids = kMessageControls, .values = kThroughClient, .enable = true},
    {.ids = kServerControls, .values = kThroughClient, .enable = false},
    {.ids = kAllControls, .values = kDirectly, .enable = true},
};

// Unlike the other pages it stores what it shows also when nothing was changed, and when the dialog is
// cancelled.
class CDlgEMail final : public PageFrom<IDD_EMAIL> {
    void LoadPage() override;
    bool StoresAlways() const override { return true; }
    bool OnCommand(Command command) override;

    PlainText m_content;
    CMyCombobox m_method;
    CMyCheckbox m_zip;
    CMyEditText m_from;
    CMyEditText m_to;
    CMyEditText m_cc;
    CMyEditText m_subject;
    CMyEditText m_server;
};

void CDlgEMail::LoadPage() {
    auto& email = settings->Email;
    m_content.Bind(*this, IDC_EMAIL_CONTENT, email.Content);
    m_method.Bind(*this, IDC_EMAIL_METHOD, email.Type, ChoicesOf("Email.Type"), kMethodRules);
    m_zip.Bind(*this, IDC_EMAIL_ZIP, email.ZIP);
    m_from.Bind(*this, IDC_EMAIL_FROM, email.From);
    m_to.Bind(*this, IDC_EMAIL_TO, email.To);
    m_cc.Bind(*this, IDC_EMAIL_CC, email.CC);
    m_subject.Bind(*this, IDC_EMAIL_SUBJECT, email.Subject);
    m_server.Bind(*this, IDC_EMAIL_SERVER, email.SMTP.Address);
}

bool CDlgEMail::OnCommand(Command command) {
    if (command.id != IDC_EMAIL_EDIT_SERVER || command.code != BN_CLICKED) return false;
    if (CDlgSMTP(*this).Run(GetActiveWindow()) == IDOK) m_server.Show();
    return true;
}

}  // namespace

std::unique_ptr<PageWindow> MakeEmailPage() {
    return std::make_unique<CDlgEMail>();
}

}  // namespace vmk
