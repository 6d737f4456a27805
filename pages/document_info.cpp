#include "pages/document_info.h"

#include "resources/ids/document_info.h"

namespace vmk {
namespace {

constexpr UINT kUsedOnly[] = {
    IDC_DOCINFO_TITLE,          IDC_DOCINFO_SUBJECT,       IDC_DOCINFO_AUTHOR,
    IDC_DOCINFO_KEYWORDS,       IDC_DOCINFO_CREATOR,       IDC_DOCINFO_GROUP,
    IDC_DOCINFO_TITLE_LABEL,    IDC_DOCINFO_SUBJECT_LABEL, IDC_DOCINFO_AUTHOR_LABEL,
    IDC_DOCINFO_KEYWORDS_LABEL, IDC_DOCINFO_CREATOR_LABEL,
};

}  // namespace

CDlgDocInfo::CDlgDocInfo() : CPage(IDD_DOCUMENT_INFO) {}

void CDlgDocInfo::LoadPage() {
    PrinterSettings::InfoGroup& info = settings->Info;
    m_use.Bind(*this, IDC_DOCINFO_USE, info.Use, {.ids = kUsedOnly});
    ShowText(m_title, IDC_DOCINFO_TITLE, info.Title);
    ShowText(m_subject, IDC_DOCINFO_SUBJECT, info.Subject);
    ShowText(m_author, IDC_DOCINFO_AUTHOR, info.Author);
    ShowText(m_keywords, IDC_DOCINFO_KEYWORDS, info.Keywords);
    ShowText(m_creator, IDC_DOCINFO_CREATOR, info.Creator);
    m_use.Show();
}

void CDlgDocInfo::StorePage() {
    m_use.Store();
    for (CMyEditText* const text : {&m_title, &m_subject, &m_author, &m_keywords, &m_creator}) text->Store();
}

void CDlgDocInfo::ShowText(CMyEditText& edit, UINT id, std::wstring& field) {
    edit.Bind(*this, id, field);
    edit.Show();
}

}  // namespace vmk
