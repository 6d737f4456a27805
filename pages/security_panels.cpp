#include "pages/security_panels.h"

#include <new>

#include "resources/ids/security.h"

namespace vmk {
namespace {

constexpr ComboItem kChanges[] = {
    {0, L"None "},  // with the blank: another "None" may be translated differently
    {1, L"Only Document Assembly"},
    {2, L"Only Form Field Fill-in or Signing"},
    {3, L"Comment Authoring, Form Field Fill-in or Signing"},
    {4, L"General Editing, Comment and Form Field Authoring"},
};

constexpr ComboItem kPrinting[] = {
    {0, L"Not Allowed"},
    {1, L"Low Resolution"},
    {2, L"Fully Allowed"},
};

}  // namespace

// SecurityPanel

void SecurityPanel::CreatePanel(const CDialogEnv& env, HWND container) {
    SetEnvironment(env.ForChild());
    if (!Create(m_templateId, container)) throw std::bad_alloc();
}

void SecurityPanel::StorePanel() {
    if (IsApplyEnabled()) StorePermissions();
}

// CDlgSec40

CDlgSec40::CDlgSec40() : SecurityPanel(IDD_SECURITY_40) {}

void CDlgSec40::OnInitDialog() {
    PrinterSettings::SecurityGroup::Permissions40& permissions = settings->Security.Bits40;
    m_printing.Bind(*this, IDC_SECURITY_40_PRINTING, permissions.AllowPrinting);
    m_printing.Show();
    m_changing.Bind(*this, IDC_SECURITY_40_CHANGING, permissions.AllowChanging);
    m_changing.Show();
    m_copying.Bind(*this, IDC_SECURITY_40_COPYING, permissions.AllowCopying);
    m_copying.Show();
    m_comments.Bind(*this, IDC_SECURITY_40_COMMENTS, permissions.AllowComments);
    m_comments.Show();
    m_comments.SetNextFocus(m_printing.Handle());
}

void CDlgSec40::StorePermissions() {
    m_printing.Store();
    m_changing.Store();
    m_copying.Store();
    m_comments.Store();
}

// CDlgSec128

CDlgSec128::CDlgSec128() : SecurityPanel(IDD_SECURITY_128) {}

void CDlgSec128::OnInitDialog() {
    PrinterSettings::SecurityGroup::Permissions128& permissions = settings->Security.Bits128;
    m_access.Bind(*this, IDC_SECURITY_128_ACCESS, permissions.ContentAccess);
    m_access.Show();
    m_copying.Bind(*this, IDC_SECURITY_128_COPYING, permissions.AllowCopying);
    m_copying.Show();
    m_changes.Bind(*this, IDC_SECURITY_128_CHANGES, permissions.Changes, kChanges);
    m_changes.Show();
    m_printing.Bind(*this, IDC_SECURITY_128_PRINTING, permissions.Printing, kPrinting);
    m_printing.Show();
    m_printing.SetNextFocus(m_access.Handle());
}

void CDlgSec128::StorePermissions() {
    m_access.Store();
    m_copying.Store();
    m_changes.Store();
    m_printing.Store();
}

}  // namespace vmk
