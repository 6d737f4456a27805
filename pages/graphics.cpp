#include "resources/ids/graphics.h"

#include <array>

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/number_box.h"
#include "pages/page.h"
#include "pages/pages.h"

namespace vmk {
namespace {

using DownsampleSettings = decltype(PrinterSettings::Downsample);
using ConvertSettings = decltype(PrinterSettings::Convert);

constexpr UINT kColorDownsampling[] = {
    IDC_GRAPHICS_COLOR_TO_LABEL, IDC_GRAPHICS_COLOR_DPI_UNIT, IDC_GRAPHICS_COLOR_METHOD_LABEL,
    IDC_GRAPHICS_COLOR_DPI,      IDC_GRAPHICS_COLOR_DPI_SPIN, IDC_GRAPHICS_COLOR_METHOD,
};
constexpr UINT kIndexedDownsampling[] = {
    IDC_GRAPHICS_INDEXED_TO_LABEL, IDC_GRAPHICS_INDEXED_DPI_UNIT, IDC_GRAPHICS_INDEXED_METHOD_LABEL,
    IDC_GRAPHICS_INDEXED_DPI,      IDC_GRAPHICS_INDEXED_DPI_SPIN, IDC_GRAPHICS_INDEXED_METHOD,
};
constexpr UINT kMonoDownsampling[] = {
    IDC_GRAPHICS_MONO_TO_LABEL, IDC_GRAPHICS_MONO_DPI_UNIT, IDC_GRAPHICS_MONO_METHOD_LABEL,
    IDC_GRAPHICS_MONO_DPI,      IDC_GRAPHICS_MONO_DPI_SPIN, IDC_GRAPHICS_MONO_METHOD,
};

// What is the same for all kinds of image.
constexpr NumberRange kResolution = RangeOf("Downsample.Color.DPI");
constexpr std::span<const Choice> kMethods = ChoicesOf("Downsample.Color.Method");
constexpr std::span<const Choice> kTargets = ChoicesOf("Convert.Color.To");

struct DownsamplingRow {
    DownsampleSettings::Images DownsampleSettings::*images;
    UINT use;
    UINT dpi;
    UINT spin;
    UINT method;
    std::span<const UINT> dependents;
};

constexpr DownsamplingRow kDownsampling[] = {
    {.images = &DownsampleSettings::Color,
     .use = IDC_GRAPHICS_COLOR_USE,
     .dpi = IDC_GRAPHICS_COLOR_DPI,
     .spin = IDC_GRAPHICS_COLOR_DPI_SPIN,
     .method = IDC_GRAPHICS_COLOR_METHOD,
     .dependents = kColorDownsampling},
    {.images = &DownsampleSettings::Indexed,
     .use = IDC_GRAPHICS_INDEXED_USE,
     .dpi = IDC_GRAPHICS_INDEXED_DPI,
     .spin = IDC_GRAPHICS_INDEXED_DPI_SPIN,
     .method = IDC_GRAPHICS_INDEXED_METHOD,
     .dependents = kIndexedDownsampling},
    {.images = &DownsampleSettings::Mono,
     .use = IDC_GRAPHICS_MONO_USE,
     .dpi = IDC_GRAPHICS_MONO_DPI,
     .spin = IDC_GRAPHICS_MONO_DPI_SPIN,
     .method = IDC_GRAPHICS_MONO_METHOD,
     .dependents = kMonoDownsampling},
};

// Dithering and the threshold mean something only where the result is black and white.
constexpr std::int32_t kToMonochrome[] = {2};
constexpr std::int32_t kToShades[] = {0, 1};

constexpr UINT kColorDither[] = {IDC_GRAPHICS_DITHER_COLOR};
constexpr ComboRule kColorRules[] = {
    {.ids = kColorDither, .values = kToMonochrome, .enable = true},
    {.ids = kColorDither, .values = kToShades, .enable = false},
};
constexpr UINT kIndexedDither[] = {IDC_GRAPHICS_DITHER_INDEXED};
constexpr ComboRule kIndexedRules[] = {
    {.ids = kIndexedDither, .values = kToMonochrome, .enable = true},
    {.ids = kIndexedDither, .values = kToShades, .enable = false},
};
constexpr UINT kThresholdControls[] = {IDC_GRAPHICS_THRESHOLD_LABEL, IDC_GRAPHICS_THRESHOLD,
                                       IDC_GRAPHICS_THRESHOLD_SPIN};
constexpr ComboRule kDrawingRules[] = {
    {.ids = kThresholdControls, .values = kToMonochrome, .enable = true},
    {.ids = kThresholdControls, .values = kToShades, .enable = false},
};

class CDlgGraphics final : public PageFrom<IDD_GRAPHICS> {
    // The controls for one kind of image.
    struct Downsampling {
        CMyCheckbox use;
        CMyEditInt dpi;
        CMyCombobox method;
    };

    void LoadPage() override;
    void BindDownsampling();
    void BindConversion();

    std::array<Downsampling, std::size(kDownsampling)> m_downsampling;
    CMyCombobox m_colorTo;
    CMyCheckbox m_colorDither;
    CMyCombobox m_indexedTo;
    CMyCheckbox m_indexedDither;
    CMyCombobox m_drawingTo;
    CMyEditInt m_threshold;
};

void CDlgGraphics::LoadPage() {
    BindDownsampling();
    BindConversion();
    m_threshold.SetNextFocus(Item(IDC_GRAPHICS_COLOR_USE));
}

void CDlgGraphics::BindDownsampling() {
    for (size_t index = 0; index < m_downsampling.size(); ++index) {
        const DownsamplingRow& row = kDownsampling[index];
        DownsampleSettings::Images& images = settings->Downsample.*row.images;
        Downsampling& controls = m_downsampling[index];
        controls.use.Bind(*this, row.use, images.Use, {.ids = row.dependents});
        controls.dpi.Bind(*this, row.dpi, images.DPI, kResolution, {.step = 10, .spin = row.spin});
        controls.method.Bind(*this, row.method, images.Method, kMethods);
    }
}

void CDlgGraphics::BindConversion() {
    ConvertSettings& convert = settings->Convert;
    m_colorTo.Bind(*this, IDC_GRAPHICS_CONVERT_COLOR, convert.Color.To, kTargets, kColorRules);
    m_colorDither.Bind(*this, IDC_GRAPHICS_DITHER_COLOR, convert.Color.Dither);
    m_indexedTo.Bind(*this, IDC_GRAPHICS_CONVERT_INDEXED, convert.Indexed.To, kTargets, kIndexedRules);
    m_indexedDither.Bind(*this, IDC_GRAPHICS_DITHER_INDEXED, convert.Indexed.Dither);
    m_drawingTo.Bind(*this, IDC_GRAPHICS_CONVERT_DRAWING, convert.Drawing.To, kTargets, kDrawingRules);
    m_threshold.Bind(*this, IDC_GRAPHICS_THRESHOLD, convert.Drawing.Threshold,
                     RangeOf("Convert.Drawing.Threshold"), {.step = 5, .spin = IDC_GRAPHICS_THRESHOLD_SPIN});
}

}  // namespace

std::unique_ptr<PageWindow> MakeGraphicsPage() {
    return std::make_unique<CDlgGraphics>();
}

}  // namespace vmk
