#pragma once

#include "pages/page.h"

namespace vmk {

// Switches the detection of bookmarks on and off.
class CDlgBookmarks final : public CPage {
  public:
    CDlgBookmarks();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
