#pragma once

#include <array>
#include <cstdint>

#include "controls/checkbox.h"
#include "controls/combobox.h"
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

    void ShowVersion() const;

    std::int32_t m_version = 0;  // the version to store; kept as it is while no button stands for it
    CMyCombobox m_pageLayout;
    CMyCombobox m_pageMode;
    std::array<CMyCheckbox, 6> m_viewerPreferences;
};

}  // namespace vmk
