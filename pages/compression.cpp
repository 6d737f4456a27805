#include "pages/compression.h"

#include "resources/ids/compression.h"

namespace vmk {
namespace {

constexpr ComboItem kColorMethods[] = {
    {.value = 0, .text = L"None"},          {.value = 1, .text = L"Auto"},
    {.value = 2, .text = L"JPEG"},          {.value = 3, .text = L"ZIP"},
    {.value = 4, .text = L"JPEG/ZIP"},      {.value = 5, .text = L"JPEG 2000"},
    {.value = 6, .text = L"JPEG 2000/ZIP"},
};

constexpr ComboItem kIndexedMethods[] = {
    {.value = 0, .text = L"None"}, {.value = 1, .text = L"Auto"}, {.value = 2, .text = L"Run Length"},
    {.value = 3, .text = L"ZIP"},  {.value = 4, .text = L"LZW"},
};

constexpr ComboItem kMonoMethods[] = {
    {.value = 0, .text = L"None"},          {.value = 1, .text = L"Auto"},
    {.value = 2, .text = L"ZIP"},           {.value = 3, .text = L"CCITT Group 3"},
    {.value = 4, .text = L"CCITT Group 4"}, {.value = 5, .text = L"Run Length"},
    {.value = 6, .text = L"JBIG 2"},
};

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

constexpr CMyEditInt::Options kQuality = {.minimum = 1, .maximum = 100, .step = 1};

}  // namespace

CDlgCompression::CDlgCompression()
    : CPage(IDD_COMPRESSION), m_spins{{{.id = IDC_COMPRESSION_QUALITY_SPIN, .edit = m_quality}}} {}

void CDlgCompression::LoadPage() {
    Settings& group = settings->Compression;
    m_graphics.Bind(*this, IDC_COMPRESSION_GRAPHICS, group.Graphics, {.ids = kImageControls});
    m_ascii.Bind(*this, IDC_COMPRESSION_ASCII, group.ASCII);
    m_text.Bind(*this, IDC_COMPRESSION_TEXT, group.Text);
    m_colorMethod.Bind(*this, IDC_COMPRESSION_COLOR_METHOD, group.Color.Method, kColorMethods, kColorRules);
    m_indexedMethod.Bind(*this, IDC_COMPRESSION_INDEXED_METHOD, group.Indexed.Method, kIndexedMethods);
    m_monoMethod.Bind(*this, IDC_COMPRESSION_MONO_METHOD, group.Mono.Method, kMonoMethods);
    m_quality.Bind(*this, IDC_COMPRESSION_QUALITY, group.Color.JPEGQuality, kQuality);

    m_ascii.Show();
    m_text.Show();
    ShowGraphics(group);
}

void CDlgCompression::StorePage() {
    m_graphics.Store();
    m_ascii.Store();
    m_text.Store();
    m_colorMethod.Store();
    m_quality.Store();
    m_indexedMethod.Store();
    m_monoMethod.Store();
}

bool CDlgCompression::OnCommand(Command command) {
    if (command.code != BN_CLICKED) return false;
    switch (command.id) {
        case IDC_COMPRESSION_GRAPHICS:
            OnGraphicsClicked();
            return true;
        case IDC_COMPRESSION_DEFAULT:
            ShowDefaults();
            return true;
        default:
            return false;
    }
}

// Both the check box and the rules of the lists switch the quality controls. Whichever comes last decides:
// the check box while it is off, the rules while it is on.
void CDlgCompression::ShowGraphics(const Settings& shown) {
    const bool compress = shown.Graphics != 0;
    if (!compress) SelectMethods(shown);
    m_graphics.SetCheck(compress);
    if (compress) SelectMethods(shown);
}

void CDlgCompression::SelectMethods(const Settings& shown) {
    m_colorMethod.SelectByValue(shown.Color.Method);
    m_indexedMethod.SelectByValue(shown.Indexed.Method);
    m_monoMethod.SelectByValue(shown.Mono.Method);
}

void CDlgCompression::OnGraphicsClicked() {
    m_graphics.ReapplyDependents();
    if (m_graphics.IsChecked()) {
        m_colorMethod.ReapplyRules();
        m_indexedMethod.ReapplyRules();
        m_monoMethod.ReapplyRules();
    }
    EnableApply();
}

// The default quality is only written into its box: like a typed number it counts once the box has lost the
// focus or has been stepped.
void CDlgCompression::ShowDefaults() {
    const Settings defaults;
    m_quality.ShowNumber(defaults.Color.JPEGQuality);
    m_text.SetCheck(defaults.Text != 0);
    m_ascii.SetCheck(defaults.ASCII != 0);
    ShowGraphics(defaults);
    EnableApply();
}

}  // namespace vmk
