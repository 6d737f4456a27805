#include "pages/fonts.h"

#include "resources/ids/fonts.h"

namespace vmk {

CDlgFonts::CDlgFonts() : CPage(IDD_FONTS) {}

void CDlgFonts::LoadPage() {}

void CDlgFonts::StorePage() {}

}  // namespace vmk
