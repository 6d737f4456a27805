#pragma once

#include "controls/checkbox.h"
#include "controls/edit_text.h"
#include "pages/page.h"

namespace vmk {

// Edits the texts that describe the document.
class CDlgDocInfo final : public CPage {
  public:
    CDlgDocInfo();

  private:
    void LoadPage() override;
    void StorePage() override;

    CMyCheckbox m_use;
    CMyEditText m_title;
    CMyEditText m_subject;
    CMyEditText m_author;
    CMyEditText m_keywords;
    CMyEditText m_creator;
};

}  // namespace vmk
