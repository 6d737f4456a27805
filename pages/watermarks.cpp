#include "pages/watermarks.h"

#include "resources/ids/watermarks.h"

namespace vmk {

CDlgWatermarks::CDlgWatermarks() : CPage(IDD_WATERMARKS) {}

void CDlgWatermarks::LoadPage() {
    m_print.Bind(*this, IDC_WATERMARKS_PRINT, settings->Watermarks.Print);
    m_print.Show();
}

void CDlgWatermarks::StorePage() {
    m_print.Store();
}

}  // namespace vmk
