#include "resources/ids/document_info.h"

#include "controls/checkbox.h"
#include "controls/edit_text.h"
#include "pages/page.h"
#include "pages/pages.h"

namespace vmk {
namespace {

constexpr UINT kUsedOnly[] = {
    IDC_DOCINFO_TITLE,          IDC_DOCINFO_SUBJECT,       IDC_DOCINFO_AUTHOR,
    IDC_DOCINFO_KEYWORDS,       IDC_DOCINFO_CREATOR,       IDC_DOCINFO_GROUP,
    IDC_DOCINFO_TITLE_LABEL,    IDC_DOCINFO_SUBJECT_LABEL, IDC_DOCINFO_AUTHOR_LABEL,
    IDC_DOCINFO_KEYWORDS_LABEL, IDC_DOCINFO_CREATOR_LABEL,
};

class CDlgDocInfo final : public PageFrom<IDD_DOCUMENT_INFO> {
    void LoadPage() override {
        auto& info = settings->Info;
        m_use.Bind(*this, IDC_DOCINFO_USE, info.Use, {.ids = kUsedOnly});
        m_title.Bind(*this, IDC_DOCINFO_TITLE, info.Title);
        m_subject.Bind(*this, IDC_DOCINFO_SUBJECT, info.Subject);
        m_author.Bind(*this, IDC_DOCINFO_AUTHOR, info.Author);
        m_keywords.Bind(*this, IDC_DOCINFO_KEYWORDS, info.Keywords);
        m_creator.Bind(*this, IDC_DOCINFO_CREATOR, info.Creator);
    }

    CMyCheckbox m_use;
    CMyEditText m_title;
    CMyEditText m_subject;
    CMyEditText m_author;
    CMyEditText m_keywords;
    CMyEditText m_creator;
};

}  // namespace

std::unique_ptr<PageWindow> MakeDocumentInfoPage() {
    return std::make_unique<CDlgDocInfo>();
}

}  // namespace vmk
