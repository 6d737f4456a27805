#include "resources/ids/compression.h"

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/number_box.h"
#include "pages/page.h"
#include "pages/pages.h"

namespace vmk {
namespace {

constexpr UINT kImageControls[] = {
    IDC_COMPRESSION_COLOR_GROUP,    IDC_COMPRESSION_COLOR_METHOD,       IDC_COMPRESSION_QUALITY,
    IDC_COMPRESSION_QUALITY_SPIN,   IDC_COMPRESSION_COLOR_METHOD_LABEL, IDC_COMPRESSION_QUALITY_LABEL,
    IDC_COMPRESSION_QUALITY_UNIT,   IDC_COMPRESSION_INDEXED_GROUP,      IDC_COMPRESSION_INDEXED_METHOD_LABEL,
    IDC_COMPRESSION_INDEXED_METHOD, IDC_COMPRESSION_MONO_GROUP,         IDC_COMPRESSION_MONO_METHOD_LABEL,
    IDC_COMPRESSION_MONO_METHOD,
};

constexpr UINT kQualityControls[] = {
    IDC_COMPRESSION_QUALITY,
    IDC_COMPRESSION_QUALITY_SPIN,
    IDC_COMPRESSION_QUALITY_LABEL,
    IDC_COMPRESSION_QUALITY_UNIT,
};

// The quality can be edited for every method but "None", also for those that may not use JPEG in the end.
constexpr std::int32_t kCompressing[] = {1, 2, 3, 4, 5, 6};
constexpr std::int32_t kNotCompressing[] = {0};
constexpr ComboRule kColorRules[] = {
    {.ids = kQualityControls, .values = kCompressing, .enable = true},
    {.ids = kQualityControls, .values = kNotCompressing, .enable = false},
};

class CDlgCompression final : public PageFrom<IDD_COMPRESSION> {
    void LoadPage() override;
    bool OnCommand(Command command) override;
    void ShowDefaults();

    CMyCheckbox m_graphics;
    CMyCheckbox m_ascii;
    CMyCheckbox m_text;
    CMyCombobox m_colorMethod;
    CMyEditInt m_quality;
    CMyCombobox m_indexedMethod;
    CMyCombobox m_monoMethod;
};

void CDlgCompression::LoadPage() {
    auto& group = settings->Compression;
    m_graphics.Bind(*this, IDC_COMPRESSION_GRAPHICS, group.Graphics, {.ids = kImageControls});
    m_ascii.Bind(*this, IDC_COMPRESSION_ASCII, group.ASCII);
    m_text.Bind(*this, IDC_COMPRESSION_TEXT, group.Text);
    m_colorMethod.Bind(*this, IDC_COMPRESSION_COLOR_METHOD, group.Color.Method,
                       ChoicesOf("Compression.Color.Method"), kColorRules);
    m_quality.Bind(*this, IDC_COMPRESSION_QUALITY, group.Color.JPEGQuality,
                   RangeOf("Compression.Color.JPEGQuality"), {.spin = IDC_COMPRESSION_QUALITY_SPIN});
    m_indexedMethod.Bind(*this, IDC_COMPRESSION_INDEXED_METHOD, group.Indexed.Method,
                         ChoicesOf("Compression.Indexed.Method"));
    m_monoMethod.Bind(*this, IDC_COMPRESSION_MONO_METHOD, group.Mono.Method,
                      ChoicesOf("Compression.Mono.Method"));
}

bool CDlgCompression::OnCommand(Command command) {
    if (command.id != IDC_COMPRESSION_DEFAULT || command.code != BN_CLICKED) return false;
    ShowDefaults();
    return true;
}

// The default quality is only written into its box: like a typed number it counts once the box has lost the
// focus or has been stepped.
void CDlgCompression::ShowDefaults() {
    const PrinterSettings::CompressionGroup defaults;
    m_quality.ShowNumber(defaults.Color.JPEGQuality);
    m_text.SetCheck(defaults.Text != 0);
    m_ascii.SetCheck(defaults.ASCII != 0);
    m_colorMethod.SelectByValue(defaults.Color.Method);
    m_indexedMethod.SelectByValue(defaults.Indexed.Method);
    m_monoMethod.SelectByValue(defaults.Mono.Method);
    m_graphics.SetCheck(defaults.Graphics != 0);
    EnableApply();
}

}  // namespace

std::unique_ptr<PageWindow> MakeCompressionPage() {
    return std::make_unique<CDlgCompression>();
}

}  // namespace vmk
