#include "pages/optimization.h"

#include <commctrl.h>

namespace vmk {
namespace {

// The separable blend modes of PDF, in its order and with its names.
constexpr ComboItem kBlendModes[] = {
    {.value = 0, .text = L"Normal"},      {.value = 1, .text = L"Multiply"},
    {.value = 2, .text = L"Screen"},      {.value = 3, .text = L"Overlay"},
    {.value = 4, .text = L"Darken"},      {.value = 5, .text = L"Lighten"},
    {.value = 6, .text = L"ColorDodge"},  {.value = 7, .text = L"ColorBurn"},
    {.value = 8, .text = L"HardLight"},   {.value = 9, .text = L"SoftLight"},
    {.value = 10, .text = L"Difference"}, {.value = 11, .text = L"Exclusion"},
};

constexpr ComboItem kDeTessellationMethods[] = {
    {.value = 0, .text = L"None"},
    {.value = 1, .text = L"Simple"},
};

constexpr CMyEditInt::Options kThreshold = {.minimum = 1, .maximum = 8, .step = 1};  // megabytes

constexpr UINT kMemoryControls[] = {IDC_OPTIMIZATION_SWAP, IDC_OPTIMIZATION_SWAP_THRESHOLD,
                                    IDC_OPTIMIZATION_SWAP_SPIN, IDC_OPTIMIZATION_SWAP_UNIT};
constexpr std::span<const UINT> kThresholdControls = std::span(kMemoryControls).last<3>();

}  // namespace

CDlgOptimization::CDlgOptimization() : CPage(IDD_OPTIMIZATION) {}

void CDlgOptimization::LoadPage() {
    auto& optimization = settings->Optimization;
    m_blendMode.Bind(*this, IDC_OPTIMIZATION_BLEND_MODE, optimization.BlendMode, kBlendModes);
    m_deTessellation.Bind(*this, IDC_OPTIMIZATION_DETESSELLATION, optimization.DeTessellation,
                          kDeTessellationMethods);
    m_noTransparency.Bind(*this, IDC_OPTIMIZATION_NO_TRANSPARENCY, optimization.NoTransparency);
    m_noTransparency.Show();
    m_noMaskedImages.Bind(*this, IDC_OPTIMIZATION_NO_MASKED_IMAGES, optimization.NoMaskedImages);
    m_noMaskedImages.Show();
    m_optimizeImages.Bind(*this, IDC_OPTIMIZATION_OPTIMIZE_IMAGES, optimization.OptimizeImages,
                          {.ids = kMemoryControls});
    m_swap.Bind(*this, IDC_OPTIMIZATION_SWAP, optimization.SwapToDisk.Enabled, {.ids = kThresholdControls});
    BindThreshold(optimization.SwapToDisk.Megabytes);
    m_blendMode.Show();
    m_deTessellation.Show();
    ShowMemoryManagement();
}

// 0 is stored for no swapping. It is no threshold that could be edited, so the box starts with the smallest.
void CDlgOptimization::BindThreshold(std::int32_t& megabytes) {
    m_threshold.Bind(*this, IDC_OPTIMIZATION_SWAP_THRESHOLD, megabytes, kThreshold);
    if (megabytes != 0) return;
    m_threshold.SetNumber(kThreshold.minimum);
    m_threshold.SetStored(kThreshold.minimum);
}

// The threshold's controls belong to both boxes; whichever is shown last decides about them.
void CDlgOptimization::ShowMemoryManagement() {
    if (settings->Optimization.OptimizeImages) {
        m_optimizeImages.Show();
        m_swap.Show();
    } else {
        m_swap.Show();
        m_optimizeImages.Show();
    }
}

void CDlgOptimization::StorePage() {
    m_blendMode.Store();
    m_deTessellation.Store();
    m_noTransparency.Store();
    m_noMaskedImages.Store();
    m_optimizeImages.Store();
    m_swap.Store();
    m_threshold.Store();
}

// Checking the box is done here, and so enables no Apply by itself; unchecking is left to the box.
bool CDlgOptimization::OnCommand(Command command) {
    if (command.id != IDC_OPTIMIZATION_OPTIMIZE_IMAGES || command.code != BN_CLICKED) return false;
    if (!m_optimizeImages.IsChecked()) return false;
    EnableItem(IDC_OPTIMIZATION_SWAP, true);
    m_swap.ReapplyDependents();
    return true;
}

bool CDlgOptimization::OnNotify(const NMHDR& header) {
    return header.code == UDN_DELTAPOS;
}

}  // namespace vmk
