#include "pages/email.h"

#include "base/window_text.h"
#include "pages/smtp.h"
#include "resources/ids/email.h"

namespace vmk {
namespace {

// The blank keeps the key apart from the other lists' "None", which a language may have to translate
// differently.
constexpr ComboItem kMethods[] = {
    {.value = 0, .text = L"None "},
    {.value = 1, .text = L"Launch Default e-Mail Client"},
    {.value = 2, .text = L"Send Through Default e-Mail Client"},
    {.value = 3, .text = L"Send Directly Through SMTP Server"},
};
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

}  // namespace

CDlgEMail::CDlgEMail() : CPage(IDD_EMAIL) {}

void CDlgEMail::LoadPage() {
    auto& email = settings->Email;
    ShowContent();
    m_zip.Bind(*this, IDC_EMAIL_ZIP, email.ZIP);
    m_zip.Show();
    m_method.Bind(*this, IDC_EMAIL_METHOD, email.Type, kMethods, kMethodRules);
    m_from.Bind(*this, IDC_EMAIL_FROM, email.From);
    m_to.Bind(*this, IDC_EMAIL_TO, email.To);
    m_cc.Bind(*this, IDC_EMAIL_CC, email.CC);
    m_subject.Bind(*this, IDC_EMAIL_SUBJECT, email.Subject);
    m_server.Bind(*this, IDC_EMAIL_SERVER, email.SMTP.Address);
    m_method.Show();
}

void CDlgEMail::StorePage() {
    settings->Email.Content = WindowText(Item(IDC_EMAIL_CONTENT));
    m_method.Store();
    m_zip.Store();
    m_from.Store();
    m_to.Store();
    m_cc.Store();
    m_subject.Store();
    m_server.Store();
}

bool CDlgEMail::OnCommand(Command command) {
    if (command.id == IDC_EMAIL_CONTENT && command.code == EN_CHANGE) {
        EnableApply();
        return true;
    }
    if (command.id == IDC_EMAIL_EDIT_SERVER && command.code == BN_CLICKED) {
        EditServer();
        return true;
    }
    return false;
}

void CDlgEMail::ShowContent() {
    // A box takes no typing beyond its limit, and the one that it starts with is shorter than many a message.
    SendMessageW(Item(IDC_EMAIL_CONTENT), EM_SETLIMITTEXT, 0, 0);
    SetWindowTextW(Item(IDC_EMAIL_CONTENT), settings->Email.Content.c_str());
}

void CDlgEMail::EditServer() {
    if (CDlgSMTP(*this).Run(GetActiveWindow()) == IDOK) m_server.Show();
}

}  // namespace vmk
