#pragma once

#include "controls/checkbox.h"
#include "framework/image_list.h"
#include "pages/font_list.h"
#include "pages/font_list_view.h"
#include "pages/page.h"

namespace vmk {

// Chooses which fonts are embedded: all, protected ones, and two lists that the user fills from the installed
// fonts.
class CDlgFonts final : public CPage {
  public:
    CDlgFonts();

  private:
    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;

    FontListView List(UINT id) const { return FontListView(Item(id)); }
    void ShowFonts(const PrinterSettings& shown);
    void MoveSelected(UINT source, UINT target);
    void ShowDefaults();

    UniqueImageList m_icons;
    FontFaces m_faces;
    CMyCheckbox m_all;
    CMyCheckbox m_protected;
    CMyCheckbox m_useAlways;
    CMyCheckbox m_useNever;
};

}  // namespace vmk
