#include "pages/graphics.h"

#include "resources/ids/graphics.h"

namespace vmk {

CDlgGraphics::CDlgGraphics() : CPage(IDD_GRAPHICS) {}

void CDlgGraphics::LoadPage() {}

void CDlgGraphics::StorePage() {}

}  // namespace vmk
