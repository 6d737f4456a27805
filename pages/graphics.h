#pragma once

#include <array>

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_int.h"
#include "pages/page.h"

namespace vmk {

// Chooses how images are downsampled and converted.
class CDlgGraphics final : public CPage {
  public:
    CDlgGraphics();

  private:
    // The controls for one kind of image.
    struct Downsampling {
        CMyCheckbox use;
        CMyEditInt dpi;
        CMyCombobox method;
    };
    struct Conversion {
        CMyCombobox to;
        CMyCheckbox dither;
    };

    void LoadPage() override;
    void StorePage() override;
    std::span<const Spin> Spins() override { return m_spins; }

    void BindDownsampling();
    void BindConversion();

    std::array<Downsampling, 3> m_downsampling;
    std::array<Conversion, 2> m_conversion;
    CMyCombobox m_drawingTo;
    CMyEditInt m_threshold;
    const std::array<Spin, 4> m_spins;
};

}  // namespace vmk
