#pragma once

#include "controls/checkbox.h"
#include "controls/edit_text.h"
#include "controls/radio_group.h"
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

    CMyCheckbox m_enable;
    CMyEditText m_file;
    CMyEditText m_password;
    CMyCheckbox m_foreground;
    CMyCheckbox m_fit;
    CMyCheckbox m_keepAspect;
    RadioGroup m_repeat;
    RadioGroup m_horizontal;
    RadioGroup m_vertical;
};

}  // namespace vmk
