#include "pages/overlay.h"

#include "resources/ids/overlay.h"

namespace vmk {

CDlgOverlay::CDlgOverlay() : CPage(IDD_OVERLAY) {}

void CDlgOverlay::LoadPage() {}

void CDlgOverlay::StorePage() {}

}  // namespace vmk
