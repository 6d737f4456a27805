#include "pages/graphics.h"

#include "resources/ids/graphics.h"

namespace vmk {
namespace {

using DownsampleSettings = decltype(PrinterSettings::Downsample);
using ConvertSettings = decltype(PrinterSettings::Convert);

constexpr CMyEditInt::Options kResolution = {.minimum = 50, .maximum = 2400, .step = 10};
constexpr CMyEditInt::Options kThreshold = {.minimum = 1, .maximum = 255, .step = 5};

constexpr ComboItem kMethods[] = {
    {.value = 0, .text = L"Linear Downsampling"},
    {.value = 1, .text = L"Bilinear Downsampling"},
    {.value = 2, .text = L"Bicubic Downsampling"},
};

constexpr ComboItem kTargets[] = {
    {.value = 0, .text = L"None"},
    {.value = 1, .text = L"Grayscale"},
    {.value = 2, .text = L"Monochrome"},
};

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

struct DownsamplingRow {
    DownsampleSettings::Images DownsampleSettings::*images;
    UINT use;
    UINT dpi;
    UINT method;
    std::span<const UINT> dependents;
};

constexpr DownsamplingRow kDownsampling[] = {
    {.images = &DownsampleSettings::Color,
     .use = IDC_GRAPHICS_COLOR_USE,
     .dpi = IDC_GRAPHICS_COLOR_DPI,
     .method = IDC_GRAPHICS_COLOR_METHOD,
     .dependents = kColorDownsampling},
    {.images = &DownsampleSettings::Indexed,
     .use = IDC_GRAPHICS_INDEXED_USE,
     .dpi = IDC_GRAPHICS_INDEXED_DPI,
     .method = IDC_GRAPHICS_INDEXED_METHOD,
     .dependents = kIndexedDownsampling},
    {.images = &DownsampleSettings::Mono,
     .use = IDC_GRAPHICS_MONO_USE,
     .dpi = IDC_GRAPHICS_MONO_DPI,
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

struct ConversionRow {
    ConvertSettings::Images ConvertSettings::*images;
    UINT to;
    UINT dither;
    std::span<const ComboRule> rules;
};

constexpr ConversionRow kConversion[] = {
    {.images = &ConvertSettings::Color,
     .to = IDC_GRAPHICS_CONVERT_COLOR,
     .dither = IDC_GRAPHICS_DITHER_COLOR,
     .rules = kColorRules},
    {.images = &ConvertSettings::Indexed,
     .to = IDC_GRAPHICS_CONVERT_INDEXED,
     .dither = IDC_GRAPHICS_DITHER_INDEXED,
     .rules = kIndexedRules},
};

}  // namespace

CDlgGraphics::CDlgGraphics()
    : CPage(IDD_GRAPHICS),
      m_spins{{{.id = IDC_GRAPHICS_COLOR_DPI_SPIN, .edit = m_downsampling[0].dpi},
               {.id = IDC_GRAPHICS_INDEXED_DPI_SPIN, .edit = m_downsampling[1].dpi},
               {.id = IDC_GRAPHICS_MONO_DPI_SPIN, .edit = m_downsampling[2].dpi},
               {.id = IDC_GRAPHICS_THRESHOLD_SPIN, .edit = m_threshold}}} {}

void CDlgGraphics::LoadPage() {
    BindDownsampling();
    BindConversion();
    for (Downsampling& row : m_downsampling) {
        row.method.Show();
        row.use.Show();
    }
    for (Conversion& row : m_conversion) {
        row.dither.Show();
        row.to.Show();
    }
    m_drawingTo.Show();
    m_threshold.SetNextFocus(Item(IDC_GRAPHICS_COLOR_USE));
}

void CDlgGraphics::StorePage() {
    for (Downsampling& row : m_downsampling) {
        row.use.Store();
        row.dpi.Store();
        row.method.Store();
    }
    for (Conversion& row : m_conversion) {
        row.to.Store();
        row.dither.Store();
    }
    m_drawingTo.Store();
    m_threshold.Store();
}

void CDlgGraphics::BindDownsampling() {
    for (size_t index = 0; index < m_downsampling.size(); ++index) {
        const DownsamplingRow& row = kDownsampling[index];
        DownsampleSettings::Images& images = settings->Downsample.*row.images;
        Downsampling& controls = m_downsampling[index];
        controls.use.Bind(*this, row.use, images.Use, {.ids = row.dependents});
        controls.dpi.Bind(*this, row.dpi, images.DPI, kResolution);
        controls.method.Bind(*this, row.method, images.Method, kMethods);
    }
}

void CDlgGraphics::BindConversion() {
    for (size_t index = 0; index < m_conversion.size(); ++index) {
        const ConversionRow& row = kConversion[index];
        ConvertSettings::Images& images = settings->Convert.*row.images;
        m_conversion[index].to.Bind(*this, row.to, images.To, kTargets, row.rules);
        m_conversion[index].dither.Bind(*this, row.dither, images.Dither);
    }
    ConvertSettings::Drawings& drawings = settings->Convert.Drawing;
    m_drawingTo.Bind(*this, IDC_GRAPHICS_CONVERT_DRAWING, drawings.To, kTargets, kDrawingRules);
    m_threshold.Bind(*this, IDC_GRAPHICS_THRESHOLD, drawings.Threshold, kThreshold);
}

}  // namespace vmk
