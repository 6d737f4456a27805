#include "pages/optimization.h"

#include "resources/ids/optimization.h"

namespace vmk {

CDlgOptimization::CDlgOptimization() : CPage(IDD_OPTIMIZATION) {}

void CDlgOptimization::LoadPage() {}

void CDlgOptimization::StorePage() {}

}  // namespace vmk
