#pragma once

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_int.h"
#include "pages/page.h"
#include "resources/ids/optimization.h"

namespace vmk {

// Tunes blending, work-arounds and the use of memory.
class CDlgOptimization final : public CPage {
  public:
    CDlgOptimization();

  private:
    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;
    bool OnNotify(const NMHDR& header) override;
    std::span<const Spin> Spins() override { return m_spins; }

    void BindThreshold(std::int32_t& megabytes);
    void ShowMemoryManagement();

    CMyCombobox m_blendMode;
    CMyCombobox m_deTessellation;
    CMyCheckbox m_noTransparency;
    CMyCheckbox m_noMaskedImages;
    CMyCheckbox m_optimizeImages;
    CMyCheckbox m_swap;
    CMyEditInt m_threshold;
    const Spin m_spins[1] = {{.id = IDC_OPTIMIZATION_SWAP_SPIN, .edit = m_threshold}};
};

}  // namespace vmk
