#include "pages/digital_signature.h"

#include <limits>

#include "controls/path_box.h"
#include "resources/ids/digital_signature.h"

namespace vmk {
namespace {

// Suggestions only: any text may be typed.
constexpr const wchar_t* kReasons[] = {
    L"<none>",
    L"I am the author of this document",
    L"I agree to specified portions of this document",
    L"I have reviewed this document",
    L"I am approving this document",
    L"I attest to the accuracy and integrity of this document",
    L"I agree to the terms defined by the placement of my signature on this document",
};

constexpr ComboItem kUnits[] = {
    {.value = static_cast<std::int32_t>(LengthUnit::kMillimetres), .text = L"mm"},
    {.value = static_cast<std::int32_t>(LengthUnit::kInches), .text = L"inches"},
    {.value = static_cast<std::int32_t>(LengthUnit::kPoints), .text = L"points"},
};

// The kind of graphic is a part of the stored flags.
constexpr std::int32_t kGraphicMask = 0x30;
constexpr std::int32_t kImage = 0x10;
constexpr std::int32_t kName = 0x20;
constexpr ComboItem kGraphics[] = {
    {.value = 0, .text = L"No Graphic"},
    {.value = kImage, .text = L"Image"},
    {.value = kName, .text = L"Name"},
};

constexpr UINT kImageControls[] = {IDC_SIGNATURE_IMAGE, IDC_SIGNATURE_IMAGE_BROWSE};
constexpr std::int32_t kWithImage[] = {kImage};
constexpr std::int32_t kWithoutImage[] = {0, kName};
constexpr ComboRule kGraphicRules[] = {
    {.ids = kImageControls, .values = kWithImage, .enable = true},
    {.ids = kImageControls, .values = kWithoutImage, .enable = false},
};

// The check boxes in the order of the page, each with its bit of the stored flags.
struct FlagBox {
    UINT id;
    std::int32_t bit;
};
constexpr FlagBox kFlagBoxes[] = {
    {.id = IDC_SIGNATURE_SHOW_NAME, .bit = 0x100},
    {.id = IDC_SIGNATURE_SHOW_LOCATION, .bit = 0x400},
    {.id = IDC_SIGNATURE_SHOW_DISTINGUISHED_NAME, .bit = 0x1000},
    {.id = IDC_SIGNATURE_SHOW_DATE, .bit = 0x200},
    {.id = IDC_SIGNATURE_SHOW_REASON, .bit = 0x800},
    {.id = IDC_SIGNATURE_SHOW_LABELS, .bit = 0x8000},
};

constexpr UINT kLengthEdits[] = {IDC_SIGNATURE_LEFT, IDC_SIGNATURE_TOP, IDC_SIGNATURE_WIDTH,
                                 IDC_SIGNATURE_HEIGHT};

constexpr UINT kSignatureControls[] = {
    IDC_SIGNATURE_FILE_LABEL,
    IDC_SIGNATURE_PASSWORD_LABEL,
    IDC_SIGNATURE_DETAILS_GROUP,
    IDC_SIGNATURE_REASON_LABEL,
    IDC_SIGNATURE_LOCATION_LABEL,
    IDC_SIGNATURE_CONTACT_LABEL,
    IDC_SIGNATURE_POSITION_GROUP,
    IDC_SIGNATURE_PAGE_LABEL,
    IDC_SIGNATURE_UNITS_LABEL,
    IDC_SIGNATURE_LEFT_LABEL,
    IDC_SIGNATURE_TOP_LABEL,
    IDC_SIGNATURE_WIDTH_LABEL,
    IDC_SIGNATURE_HEIGHT_LABEL,
    IDC_SIGNATURE_APPEARANCE_GROUP,
    IDC_SIGNATURE_GRAPHIC_LABEL,
    IDC_SIGNATURE_IMAGE_LABEL,
    IDC_SIGNATURE_FILE,
    IDC_SIGNATURE_FILE_BROWSE,
    IDC_SIGNATURE_PASSWORD,
    IDC_SIGNATURE_REASON,
    IDC_SIGNATURE_LOCATION,
    IDC_SIGNATURE_CONTACT,
    IDC_SIGNATURE_PAGE,
    IDC_SIGNATURE_PAGE_SPIN,
    IDC_SIGNATURE_UNITS,
    IDC_SIGNATURE_LEFT,
    IDC_SIGNATURE_LEFT_SPIN,
    IDC_SIGNATURE_TOP,
    IDC_SIGNATURE_TOP_SPIN,
    IDC_SIGNATURE_WIDTH,
    IDC_SIGNATURE_WIDTH_SPIN,
    IDC_SIGNATURE_HEIGHT,
    IDC_SIGNATURE_HEIGHT_SPIN,
    IDC_SIGNATURE_GRAPHIC,
    IDC_SIGNATURE_IMAGE,
    IDC_SIGNATURE_IMAGE_BROWSE,
    IDC_SIGNATURE_SHOW_NAME,
    IDC_SIGNATURE_SHOW_DATE,
    IDC_SIGNATURE_SHOW_LOCATION,
    IDC_SIGNATURE_SHOW_REASON,
    IDC_SIGNATURE_SHOW_DISTINGUISHED_NAME,
    IDC_SIGNATURE_SHOW_LABELS,
};

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr CMyEditInt::Options kPage = {.minimum = -1, .maximum = kLargest, .step = 1};
constexpr CMyEditDouble::Options kLength = {
    .minimum = 0.0, .maximum = kLargest, .step = 0.1, .format = L"%1.3f"};
constexpr double kStoredPerMillimetre = 10.0;

constexpr LengthUnit UnitOf(std::int32_t value) {
    return static_cast<LengthUnit>(value);
}

}  // namespace

CDlgDigSign::CDlgDigSign()
    : CPage(IDD_DIGITAL_SIGNATURE),
      m_spins{{{.id = IDC_SIGNATURE_PAGE_SPIN, .edit = m_page},
               {.id = IDC_SIGNATURE_LEFT_SPIN, .edit = m_lengths[0].edit},
               {.id = IDC_SIGNATURE_TOP_SPIN, .edit = m_lengths[1].edit},
               {.id = IDC_SIGNATURE_WIDTH_SPIN, .edit = m_lengths[2].edit},
               {.id = IDC_SIGNATURE_HEIGHT_SPIN, .edit = m_lengths[3].edit}}} {}

void CDlgDigSign::LoadPage() {
    LoadCertificate();
    LoadReasons();
    LoadPosition();
    LoadAppearance();
    // The check box comes after the rules of the graphic: while it is clear, everything is disabled.
    m_enable.Show();
    if (m_enable.IsChecked()) m_graphic.ReapplyRules();
}

void CDlgDigSign::LoadCertificate() {
    auto& group = settings->Security.Digisig;
    m_enable.Bind(*this, IDC_SIGNATURE_ENABLE, group.Enable, {.ids = kSignatureControls});
    m_file.Bind(*this, IDC_SIGNATURE_FILE, group.PFXFile);
    m_password.Bind(*this, IDC_SIGNATURE_PASSWORD, group.PFXPassword);
    m_location.Bind(*this, IDC_SIGNATURE_LOCATION, group.Location);
    m_contact.Bind(*this, IDC_SIGNATURE_CONTACT, group.ContactInfo);
}

void CDlgDigSign::LoadReasons() {
    HWND list = Item(IDC_SIGNATURE_REASON);
    for (const wchar_t* const reason : kReasons)
        SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Translate(reason).c_str()));
    SendMessageW(list, CB_LIMITTEXT, 0, 0);  // as many characters as the system allows
    SetWindowTextW(list, settings->Security.Digisig.Reason.c_str());
}

void CDlgDigSign::LoadPosition() {
    m_page.Bind(*this, IDC_SIGNATURE_PAGE, settings->Security.Digisig.Page, kPage);
    m_unit = static_cast<std::int32_t>(LengthUnit::kMillimetres);
    m_units.Bind(*this, IDC_SIGNATURE_UNITS, m_unit, kUnits);
    m_units.Show();
    const auto stored = StoredLengths();
    for (size_t index = 0; index < m_lengths.size(); ++index) {
        Length& length = m_lengths[index];
        length.number = *stored[index] / kStoredPerMillimetre;
        length.edit.Bind(*this, kLengthEdits[index], length.number, kLength);
    }
}

void CDlgDigSign::LoadAppearance() {
    auto& group = settings->Security.Digisig;
    for (size_t index = 0; index < m_shownTexts.size(); ++index) {
        ShownText& text = m_shownTexts[index];
        text.isShown = (group.Flags & kFlagBoxes[index].bit) != 0 ? 1 : 0;
        text.box.Bind(*this, kFlagBoxes[index].id, text.isShown);
        text.box.Show();
    }
    m_image.Bind(*this, IDC_SIGNATURE_IMAGE, group.Image);
    m_graphicKind = group.Flags & kGraphicMask;
    m_graphic.Bind(*this, IDC_SIGNATURE_GRAPHIC, m_graphicKind, kGraphics, kGraphicRules);
    m_graphic.Show();
}

std::array<std::int32_t*, 4> CDlgDigSign::StoredLengths() const {
    auto& group = settings->Security.Digisig;
    return {&group.Left, &group.Top, &group.Width, &group.Height};
}

void CDlgDigSign::StorePage() {
    auto& group = settings->Security.Digisig;
    m_enable.Store();
    m_file.Store();
    m_password.Store();
    m_location.Store();
    m_contact.Store();
    group.Reason = WindowText(Item(IDC_SIGNATURE_REASON));
    const auto stored = StoredLengths();
    for (size_t index = 0; index < m_lengths.size(); ++index)
        *stored[index] = ToStoredLength(ToPoints(m_lengths[index].edit.ReadNumber(), UnitOf(m_unit)));
    NoteStoredLengths();
    group.Flags = Flags();
    m_page.Store();
    m_image.Store();
}

// What a refused entry gives way to is what is stored, in the unit on screen.
void CDlgDigSign::NoteStoredLengths() {
    const auto stored = StoredLengths();
    for (size_t index = 0; index < m_lengths.size(); ++index) {
        const double points = ToPoints(*stored[index] / kStoredPerMillimetre, LengthUnit::kMillimetres);
        m_lengths[index].edit.SetStored(FromPoints(points, UnitOf(m_unit)));
    }
}

// Bits that the page does not show are written as 0.
std::int32_t CDlgDigSign::Flags() const {
    const std::int32_t selected = m_graphic.SelectedValue();
    std::int32_t flags = selected == CMyCombobox::kNoSelection ? m_graphicKind : selected;
    for (size_t index = 0; index < m_shownTexts.size(); ++index) {
        if (m_shownTexts[index].box.IsChecked()) flags |= kFlagBoxes[index].bit;
    }
    return flags;
}

bool CDlgDigSign::OnCommand(Command command) {
    switch (command.id) {
        case IDC_SIGNATURE_ENABLE:
            if (command.code != BN_CLICKED) return false;
            OnEnableClicked();
            return true;
        case IDC_SIGNATURE_REASON:
            if (command.code != CBN_SELCHANGE && command.code != CBN_EDITCHANGE) return false;
            EnableApply();
            return true;
        case IDC_SIGNATURE_UNITS:
            if (command.code != CBN_SELCHANGE) return false;
            OnUnitSelected();
            return true;
        case IDC_SIGNATURE_FILE_BROWSE:
            if (command.code != BN_CLICKED) return false;
            BrowseForFile(m_file, L"Personal Information Exchange (*.pfx; *.p12)", L"*.pfx;*.p12");
            return true;
        case IDC_SIGNATURE_IMAGE_BROWSE:
            if (command.code != BN_CLICKED) return false;
            BrowseForFile(m_image, L"All Files (*.*)", L"*.*");
            return true;
        default:
            return false;
    }
}

void CDlgDigSign::OnEnableClicked() {
    m_enable.ReapplyDependents();
    if (m_enable.IsChecked()) m_graphic.ReapplyRules();
    EnableApply();
}

// What is on screen is converted, typed or not.
void CDlgDigSign::OnUnitSelected() {
    const std::int32_t selected = m_units.SelectedValue();
    EnableApply();
    if (selected == m_unit || selected == CMyCombobox::kNoSelection) return;
    for (Length& length : m_lengths) {
        const double points = ToPoints(length.edit.ReadNumber(), UnitOf(m_unit));
        length.edit.SetNumber(FromPoints(points, UnitOf(selected)));
    }
    m_unit = selected;
    NoteStoredLengths();
}

}  // namespace vmk
