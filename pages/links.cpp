#include "pages/links.h"

#include "resources/ids/links.h"

namespace vmk {

CDlgLinks::CDlgLinks() : CPage(IDD_LINKS) {}

void CDlgLinks::LoadPage() {}

void CDlgLinks::StorePage() {}

}  // namespace vmk
