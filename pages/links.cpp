#include "resources/ids/links.h"

#include "controls/checkbox.h"
#include "controls/color_button.h"
#include "controls/combobox.h"
#include "controls/number_box.h"
#include "pages/page.h"
#include "pages/pages.h"

namespace vmk {
namespace {

using LinkSettings = decltype(PrinterSettings::Links);

constexpr UINT kDetectionControls[] = {
    IDC_LINKS_FILES_GROUP,   IDC_LINKS_OPTIONS_GROUP, IDC_LINKS_TYPE_LABEL,
    IDC_LINKS_STYLE_LABEL,   IDC_LINKS_WIDTH_LABEL,   IDC_LINKS_COLOR_LABEL,
    IDC_LINKS_EXAMPLE_LABEL, IDC_LINKS_EXAMPLE_TEXT,  IDC_LINKS_EXAMPLE_ADDRESS,
    IDC_LINKS_WIDTH_UNIT,    IDC_LINKS_FILES_ANALIZE, IDC_LINKS_FILES_CHECK,
    IDC_LINKS_TYPE,          IDC_LINKS_STYLE,         IDC_LINKS_WIDTH,
    IDC_LINKS_WIDTH_SPIN,    IDC_LINKS_COLOR,
};

constexpr UINT kFileControls[] = {IDC_LINKS_FILES_CHECK};

constexpr UINT kBorderControls[] = {
    IDC_LINKS_STYLE_LABEL, IDC_LINKS_WIDTH_LABEL, IDC_LINKS_COLOR_LABEL, IDC_LINKS_WIDTH_UNIT,
    IDC_LINKS_STYLE,       IDC_LINKS_WIDTH,       IDC_LINKS_WIDTH_SPIN,  IDC_LINKS_COLOR,
};

constexpr std::int32_t kWithBorder[] = {1, 2};
constexpr std::int32_t kWithoutBorder[] = {0};
constexpr ComboRule kTypeRules[] = {
    {.ids = kBorderControls, .values = kWithBorder, .enable = true},
    {.ids = kBorderControls, .values = kWithoutBorder, .enable = false},
};

constexpr double kTenths = 10.0;

class CDlgLinks final : public PageFrom<IDD_LINKS> {
    void LoadPage() override;
    bool OnCommand(Command command) override;
    void ShowDefaults();

    CMyCheckbox m_analize;
    CMyCheckbox m_filesAnalize;
    CMyCheckbox m_filesCheck;
    CMyCombobox m_type;
    CMyCombobox m_style;
    CMyEditDouble m_width;
    ColorButton m_color;
};

void CDlgLinks::LoadPage() {
    LinkSettings& links = settings->Links;
    // Links that are not to be found still show how they would look: only the user's click switches that off.
    m_analize.Bind(*this, IDC_LINKS_ANALIZE, links.Analize,
                   {.ids = kDetectionControls, .offByClickOnly = true});
    m_filesAnalize.Bind(*this, IDC_LINKS_FILES_ANALIZE, links.Files.Analize, {.ids = kFileControls});
    m_filesCheck.Bind(*this, IDC_LINKS_FILES_CHECK, links.Files.Check);
    m_type.Bind(*this, IDC_LINKS_TYPE, links.Border.Type, ChoicesOf("Links.Border.Type"), kTypeRules);
    m_style.Bind(*this, IDC_LINKS_STYLE, links.Border.Style, ChoicesOf("Links.Border.Style"));
    m_width.Bind(*this, IDC_LINKS_WIDTH, links.Border.Width, RangeOf("Links.Border.Width"),
                 {.step = 0.5, .spin = IDC_LINKS_WIDTH_SPIN, .storedPerUnit = kTenths, .format = L"%1.1f"});
    m_color.Bind(*this, IDC_LINKS_COLOR, links.Border.Color);
}

bool CDlgLinks::OnCommand(Command command) {
    if (command.code != BN_CLICKED) return false;
    switch (command.id) {
        case IDC_LINKS_ANALIZE:
            // The click does not enable Apply: it is stored along with the next change of anything else.
            m_analize.SwitchOthers();
            return true;
        case IDC_LINKS_DEFAULT:
            ShowDefaults();
            return true;
        default:
            return false;
    }
}

void CDlgLinks::ShowDefaults() {
    const LinkSettings defaults;
    m_color.SetColor(defaults.Border.Color);
    m_width.SetNumber(defaults.Border.Width / kTenths);
    m_analize.SetCheck(defaults.Analize != 0);
    m_filesCheck.SetCheck(defaults.Files.Check != 0);
    m_filesAnalize.SetCheck(defaults.Files.Analize != 0);
    m_type.SelectByValue(defaults.Border.Type);
    m_style.SelectByValue(defaults.Border.Style);
    EnableApply();
}

}  // namespace

std::unique_ptr<PageWindow> MakeLinksPage() {
    return std::make_unique<CDlgLinks>();
}

}  // namespace vmk
