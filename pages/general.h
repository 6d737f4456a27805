#pragma once

#include <array>

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/radio_group.h"
#include "pages/page.h"

namespace vmk {

// Chooses the PDF version and how a viewer opens the document.
class CDlgGeneral final : public CPage {
  public:
    CDlgGeneral();

  private:
    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;

    RadioGroup m_version;
    CMyCombobox m_pageLayout;
    CMyCombobox m_pageMode;
    std::array<CMyCheckbox, 6> m_viewerPreferences;
};

}  // namespace vmk
