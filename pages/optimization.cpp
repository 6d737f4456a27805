#include <windows.h>
// commctrl.h needs windows.h before it.
#include <commctrl.h>

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/number_box.h"
#include "pages/page.h"
#include "pages/pages.h"
#include "resources/ids/optimization.h"

namespace vmk {
namespace {

constexpr UINT kMemoryControls[] = {IDC_OPTIMIZATION_SWAP, IDC_OPTIMIZATION_SWAP_THRESHOLD,
                                    IDC_OPTIMIZATION_SWAP_SPIN, IDC_OPTIMIZATION_SWAP_UNIT};
constexpr std::span<const UINT> kThresholdControls = std::span(kMemoryControls).last<3>();

class CDlgOptimization final : public PageFrom<IDD_OPTIMIZATION> {
    void LoadPage() override;
    bool OnCommand(Command command) override;
    // Arrows that belong to nothing do nothing.
    bool OnNotify(const NMHDR& header) override { return header.code == UDN_DELTAPOS; }

    CMyCombobox m_blendMode;
    CMyCombobox m_deTessellation;
    CMyCheckbox m_noTransparency;
    CMyCheckbox m_noMaskedImages;
    CMyCheckbox m_optimizeImages;
    CMyCheckbox m_swap;
    CMyEditInt m_threshold;
};

void CDlgOptimization::LoadPage() {
    auto& optimization = settings->Optimization;
    auto& swap = optimization.SwapToDisk;
    constexpr NumberRange kThreshold = RangeOf("Optimization.SwapToDisk");
    m_blendMode.Bind(*this, IDC_OPTIMIZATION_BLEND_MODE, optimization.BlendMode,
                     ChoicesOf("Optimization.BlendMode"));
    m_deTessellation.Bind(*this, IDC_OPTIMIZATION_DETESSELLATION, optimization.DeTessellation,
                          ChoicesOf("Optimization.DeTessellation"));
    m_noTransparency.Bind(*this, IDC_OPTIMIZATION_NO_TRANSPARENCY, optimization.NoTransparency);
    m_noMaskedImages.Bind(*this, IDC_OPTIMIZATION_NO_MASKED_IMAGES, optimization.NoMaskedImages);
    m_optimizeImages.Bind(*this, IDC_OPTIMIZATION_OPTIMIZE_IMAGES, optimization.OptimizeImages,
                          {.ids = kMemoryControls});
    m_swap.Bind(*this, IDC_OPTIMIZATION_SWAP, swap.Enabled, {.ids = kThresholdControls});
    m_threshold.Bind(*this, IDC_OPTIMIZATION_SWAP_THRESHOLD, swap.Megabytes, kThreshold,
                     {.spin = IDC_OPTIMIZATION_SWAP_SPIN});
    // 0 is stored for no swapping. It is no threshold that could be edited, so the box starts with the
    // smallest.
    if (swap.Megabytes == 0) m_threshold.SetStored(kThreshold.smallest);
}

// Checking the box is done here, and so enables no Apply by itself; unchecking is left to the box.
bool CDlgOptimization::OnCommand(Command command) {
    if (command.id != IDC_OPTIMIZATION_OPTIMIZE_IMAGES || command.code != BN_CLICKED) return false;
    if (!m_optimizeImages.IsChecked()) return false;
    m_optimizeImages.SwitchOthers();
    return true;
}

}  // namespace

std::unique_ptr<PageWindow> MakeOptimizationPage() {
    return std::make_unique<CDlgOptimization>();
}

}  // namespace vmk
