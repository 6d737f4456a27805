#include "pages/paper.h"

#include "resources/ids/paper.h"

namespace vmk {

CDlgPaper::CDlgPaper() : CPage(IDD_PAPER) {}

void CDlgPaper::LoadPage() {}

void CDlgPaper::StorePage() {}

}  // namespace vmk
