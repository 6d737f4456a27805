#include "pages/links.h"

#include <utility>

#include "base/truncate.h"
#include "controls/color_dialog.h"
#include "resources/ids/links.h"

namespace vmk {
namespace {

constexpr ComboItem kTypes[] = {
    {.value = 0, .text = L"No Border"},
    {.value = 1, .text = L"Underline"},
    {.value = 2, .text = L"Rectangle"},
};

constexpr ComboItem kStyles[] = {
    {.value = 0, .text = L"Solid"},
    {.value = 1, .text = L"Dashed"},
    {.value = 2, .text = L"Dotted"},
};

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

// The border's width is stored in tenths of a point and edited in points.
constexpr double kTenths = 10.0;
constexpr CMyEditDouble::Options kWidth = {.minimum = 0.5, .maximum = 5.0, .step = 0.5, .format = L"%1.1f"};

// What the colour button keeps free around its bitmap, in pixels.
constexpr int kFaceMarginX = 20;
constexpr int kFaceMarginY = 10;

}  // namespace

CDlgLinks::CDlgLinks() : CPage(IDD_LINKS), m_spins{{{.id = IDC_LINKS_WIDTH_SPIN, .edit = m_width}}} {}

void CDlgLinks::LoadPage() {
    Settings& group = settings->Links;
    m_color = static_cast<COLORREF>(group.Border.Color);
    PaintColorButton();

    m_analize.Bind(*this, IDC_LINKS_ANALIZE, group.Analize, {.ids = kDetectionControls});
    m_filesAnalize.Bind(*this, IDC_LINKS_FILES_ANALIZE, group.Files.Analize, {.ids = kFileControls});
    m_filesCheck.Bind(*this, IDC_LINKS_FILES_CHECK, group.Files.Check);
    m_type.Bind(*this, IDC_LINKS_TYPE, group.Border.Type, kTypes, kTypeRules);
    m_style.Bind(*this, IDC_LINKS_STYLE, group.Border.Style, kStyles);
    m_widthInPoints = group.Border.Width / kTenths;
    m_width.Bind(*this, IDC_LINKS_WIDTH, m_widthInPoints, kWidth);
    ShowDetection(group);
}

void CDlgLinks::StorePage() {
    Settings& group = settings->Links;
    m_analize.Store();
    m_filesAnalize.Store();
    m_filesCheck.Store();
    m_type.Store();
    m_style.Store();
    m_width.Store();
    group.Border.Width = TruncateToInt32(m_widthInPoints * kTenths);
    m_width.SetStored(group.Border.Width / kTenths);
    group.Border.Color = static_cast<std::int32_t>(m_color);
}

bool CDlgLinks::OnCommand(Command command) {
    if (command.code != BN_CLICKED) return false;
    switch (command.id) {
        case IDC_LINKS_ANALIZE:
            OnAnalizeClicked();
            return true;
        case IDC_LINKS_COLOR:
            PickColor();
            return true;
        case IDC_LINKS_DEFAULT:
            ShowDefaults();
            return true;
        default:
            return false;
    }
}

// With the detection off its dependents stay as they are: they are switched off only by a click of the user.
void CDlgLinks::ShowDetection(const Settings& shown) {
    m_filesCheck.SetCheck(shown.Files.Check != 0);
    if (shown.Analize != 0) {
        m_analize.SetCheck(true);
    } else {
        CheckItem(IDC_LINKS_ANALIZE, false);
    }
    m_filesAnalize.SetCheck(shown.Files.Analize != 0);
    m_type.SelectByValue(shown.Border.Type);
    m_style.SelectByValue(shown.Border.Style);
    // The border's rules never reach the file controls, so they need no second look.
}

// The click does not enable Apply: it is stored along with the next change of anything else.
void CDlgLinks::OnAnalizeClicked() {
    const bool analize = m_analize.IsChecked();
    if (analize) m_analize.SetCheck(true);
    m_filesAnalize.ReapplyDependents();
    m_type.ReapplyRules();
    if (!analize) m_analize.SetCheck(false);
}

void CDlgLinks::PickColor() {
    RECT button{};
    GetWindowRect(Item(IDC_LINKS_COLOR), &button);
    CMyColorDialog dialog(m_color, Handle(), {.x = button.right, .y = button.top});
    if (!dialog.Run()) return;
    m_color = dialog.Color();
    EnableApply();
    PaintColorButton();
}

void CDlgLinks::ShowDefaults() {
    const Settings defaults;
    m_color = static_cast<COLORREF>(defaults.Border.Color);
    PaintColorButton();
    m_width.SetNumber(defaults.Border.Width / kTenths);
    ShowDetection(defaults);
    EnableApply();
}

// The button shows a bitmap filled with the colour.
void CDlgLinks::PaintColorButton() {
    RECT face{};
    GetClientRect(Item(IDC_LINKS_COLOR), &face);
    face.right -= kFaceMarginX;
    face.bottom -= kFaceMarginY;

    // The context comes from GetDC but is handed back with DeleteDC, as it always was.
    const UniqueDeviceContext screen(GetDC(Handle()));
    const UniqueDeviceContext memory(CreateCompatibleDC(screen.get()));
    UniqueBitmap bitmap(CreateCompatibleBitmap(screen.get(), face.right, face.bottom));
    HGDIOBJ previous = SelectObject(memory.get(), bitmap.get());
    const UniqueBrush brush(CreateSolidBrush(m_color));
    FillRect(memory.get(), &face, brush.get());
    SelectObject(memory.get(), previous);

    m_colorFace.reset();
    m_colorFace = std::move(bitmap);
    SendMessageW(Item(IDC_LINKS_COLOR), BM_SETIMAGE, IMAGE_BITMAP,
                 reinterpret_cast<LPARAM>(m_colorFace.get()));
}

}  // namespace vmk
