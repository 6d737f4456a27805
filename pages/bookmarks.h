#pragma once

#include "controls/checkbox.h"
#include "pages/page.h"

namespace vmk {

// Switches the detection of bookmarks on and off.
class CDlgBookmarks final : public CPage {
  public:
    CDlgBookmarks();

  private:
    void LoadPage() override;
    void StorePage() override;

    CMyCheckbox m_print;
    CMyCheckbox m_multiline;
    CMyCheckbox m_matchLevel;
};

}  // namespace vmk
