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
    m_title.Bind(*this, IDC_DOCINFO_TITLE, info.Title);
    m_subject.Bind(*this, IDC_DOCINFO_SUBJECT, info.Subject);
    m_author.Bind(*this, IDC_DOCINFO_AUTHOR, info.Author);
    m_keywords.Bind(*this, IDC_DOCINFO_KEYWORDS, info.Keywords);
    m_creator.Bind(*this, IDC_DOCINFO_CREATOR, info.Creator);
    m_use.Show();
}

void CDlgDocInfo::StorePage() {
    m_use.Store();
    for (CMyEditText* const text : {&m_title, &m_subject, &m_author, &m_keywords, &m_creator}) text->Store();
}

}  // namespace vmk
