#include "resources/ids/watermarks.h"

#include "controls/checkbox.h"
#include "pages/page.h"
#include "pages/pages.h"

namespace vmk {
namespace {

class CDlgWatermarks final : public PageFrom<IDD_WATERMARKS> {
    void LoadPage() override { m_print.Bind(*this, IDC_WATERMARKS_PRINT, settings->Watermarks.Print); }

    CMyCheckbox m_print;
};

}  // namespace

std::unique_ptr<PageWindow> MakeWatermarksPage() {
    return std::make_unique<CDlgWatermarks>();
}

}  // namespace vmk
