#include "pages/compression.h"

#include "resources/ids/compression.h"

namespace vmk {

CDlgCompression::CDlgCompression() : CPage(IDD_COMPRESSION) {}

void CDlgCompression::LoadPage() {}

void CDlgCompression::StorePage() {}

}  // namespace vmk
