#include "pages/email.h"

#include "resources/ids/email.h"

namespace vmk {

CDlgEMail::CDlgEMail() : CPage(IDD_EMAIL) {}

void CDlgEMail::LoadPage() {}

void CDlgEMail::StorePage() {}

}  // namespace vmk
