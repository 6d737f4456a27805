#include "pages/general.h"

#include "resources/ids/general.h"

namespace vmk {

CDlgGeneral::CDlgGeneral() : CPage(IDD_GENERAL) {}

void CDlgGeneral::LoadPage() {}

void CDlgGeneral::StorePage() {}

}  // namespace vmk
