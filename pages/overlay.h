#pragma once

#include "controls/checkbox.h"
#include "controls/edit_text.h"
#include "pages/page.h"

namespace vmk {

// Lays the pages of an existing PDF file over the document.
class CDlgOverlay final : public CPage {
  public:
    CDlgOverlay();

  private:
    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;

    void ShowFlags();
    void ShowChoices();
    void OnEnableClicked();
    void BrowseFile();

    CMyCheckbox m_enable;
    CMyEditText m_file;
    CMyEditText m_password;
    CMyCheckbox m_foreground;
    CMyCheckbox m_fit;
    CMyCheckbox m_keepAspect;
    // Working copies of the settings that plain radio buttons show. A value without a button of its own stays
    // until one is clicked.
    std::int32_t m_repeat = 0;
    std::int32_t m_horizontal = 0;
    std::int32_t m_vertical = 0;
};

}  // namespace vmk
