#include "pages/digital_signature.h"

#include "resources/ids/digital_signature.h"

namespace vmk {

CDlgDigSign::CDlgDigSign() : CPage(IDD_DIGITAL_SIGNATURE) {}

void CDlgDigSign::LoadPage() {}

void CDlgDigSign::StorePage() {}

}  // namespace vmk
