#include "pages/security.h"

#include "resources/ids/security.h"

namespace vmk {

CDlgSecurity::CDlgSecurity() : CPage(IDD_SECURITY) {}

void CDlgSecurity::LoadPage() {}

void CDlgSecurity::StorePage() {}

}  // namespace vmk
