#include "resources/ids/digital_signature.h"

#include <array>

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_text.h"
#include "controls/number_box.h"
#include "controls/path_box.h"
#include "controls/plain_text.h"
#include "pages/length_unit.h"
#include "pages/page.h"
#include "pages/pages.h"

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

constexpr Choice kUnits[] = {
    {static_cast<std::int32_t>(LengthUnit::kMillimetres), L"mm"},
    {static_cast<std::int32_t>(LengthUnit::kInches), L"inches"},
    {static_cast<std::int32_t>(LengthUnit::kPoints), L"points"},
};

constexpr UINT kImageControls[] = {IDC_SIGNATURE_IMAGE, IDC_SIGNATURE_IMAGE_BROWSE};
constexpr std::int32_t kWithImage[] = {choices::kImage};
constexpr std::int32_t kWithoutImage[] = {0, choices::kName};
constexpr ComboRule kGraphicRules[] = {
    {.ids = kImageControls, .values = kWithImage, .enable = true},
    {.ids = kImageControls, .values = kWithoutImage, .enable = false},
};

// What the visible signature may show, in the order of the bits' table.
constexpr UINT kShownTextBoxes[] = {
    IDC_SIGNATURE_SHOW_NAME, IDC_SIGNATURE_SHOW_LOCATION, IDC_SIGNATURE_SHOW_DISTINGUISHED_NAME,
    IDC_SIGNATURE_SHOW_DATE, IDC_SIGNATURE_SHOW_REASON,   IDC_SIGNATURE_SHOW_LABELS};

using SignatureSettings = decltype(PrinterSettings::Security.Digisig);

// The rectangle of the visible signature.
struct LengthRow {
    UINT id;
    UINT spin;
    std::int32_t SignatureSettings::*field;
};
constexpr LengthRow kLengths[] = {
    {IDC_SIGNATURE_LEFT, IDC_SIGNATURE_LEFT_SPIN, &SignatureSettings::Left},
    {IDC_SIGNATURE_TOP, IDC_SIGNATURE_TOP_SPIN, &SignatureSettings::Top},
    {IDC_SIGNATURE_WIDTH, IDC_SIGNATURE_WIDTH_SPIN, &SignatureSettings::Width},
    {IDC_SIGNATURE_HEIGHT, IDC_SIGNATURE_HEIGHT_SPIN, &SignatureSettings::Height},
};

constexpr UINT kSignatureControls[] = {
    // Labels and frames.
    IDC_SIGNATURE_FILE_LABEL, IDC_SIGNATURE_PASSWORD_LABEL, IDC_SIGNATURE_DETAILS_GROUP,
    IDC_SIGNATURE_REASON_LABEL, IDC_SIGNATURE_LOCATION_LABEL, IDC_SIGNATURE_CONTACT_LABEL,
    IDC_SIGNATURE_POSITION_GROUP, IDC_SIGNATURE_PAGE_LABEL, IDC_SIGNATURE_UNITS_LABEL,
    IDC_SIGNATURE_LEFT_LABEL, IDC_SIGNATURE_TOP_LABEL, IDC_SIGNATURE_WIDTH_LABEL, IDC_SIGNATURE_HEIGHT_LABEL,
    IDC_SIGNATURE_APPEARANCE_GROUP, IDC_SIGNATURE_GRAPHIC_LABEL, IDC_SIGNATURE_IMAGE_LABEL,
    // What can be edited.
    IDC_SIGNATURE_FILE, IDC_SIGNATURE_FILE_BROWSE, IDC_SIGNATURE_PASSWORD, IDC_SIGNATURE_REASON,
    IDC_SIGNATURE_LOCATION, IDC_SIGNATURE_CONTACT, IDC_SIGNATURE_PAGE, IDC_SIGNATURE_PAGE_SPIN,
    IDC_SIGNATURE_UNITS, IDC_SIGNATURE_LEFT, IDC_SIGNATURE_LEFT_SPIN, IDC_SIGNATURE_TOP,
    IDC_SIGNATURE_TOP_SPIN, IDC_SIGNATURE_WIDTH, IDC_SIGNATURE_WIDTH_SPIN, IDC_SIGNATURE_HEIGHT,
    IDC_SIGNATURE_HEIGHT_SPIN, IDC_SIGNATURE_GRAPHIC, IDC_SIGNATURE_IMAGE, IDC_SIGNATURE_IMAGE_BROWSE,
    IDC_SIGNATURE_SHOW_NAME, IDC_SIGNATURE_SHOW_DATE, IDC_SIGNATURE_SHOW_LOCATION, IDC_SIGNATURE_SHOW_REASON,
    IDC_SIGNATURE_SHOW_DISTINGUISHED_NAME, IDC_SIGNATURE_SHOW_LABELS};

// In the unit on screen, whichever it is.
constexpr double kLongestLength = RangeOf("Security.Digisig.Left").largest;

class CDlgDigSign final : public PageFrom<IDD_DIGITAL_SIGNATURE> {
    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;

    void BindReasons();
    void BindPosition();
    void BindAppearance();
    void OnUnitSelected();

    CMyCheckbox m_enable;
    CMyEditText m_file;
    CMyEditText m_password;
    PlainText m_reason;
    CMyEditText m_location;
    CMyEditText m_contact;
    CMyEditInt m_page;
    CMyCombobox m_units;
    std::int32_t m_unit = 0;  // never stored: each opening begins with the first one
    std::array<CMyEditDouble, std::size(kLengths)> m_lengths;
    CMyCombobox m_graphic;
    CMyEditText m_image;
    std::array<CMyCheckbox, std::size(kShownTextBoxes)> m_shownTexts;
};

void CDlgDigSign::LoadPage() {
    auto& signature = settings->Security.Digisig;
    m_enable.Bind(*this, IDC_SIGNATURE_ENABLE, signature.Enable, {.ids = kSignatureControls});
    m_file.Bind(*this, IDC_SIGNATURE_FILE, signature.PFXFile);
    m_password.Bind(*this, IDC_SIGNATURE_PASSWORD, signature.PFXPassword);
    BindReasons();
    m_location.Bind(*this, IDC_SIGNATURE_LOCATION, signature.Location);
    m_contact.Bind(*this, IDC_SIGNATURE_CONTACT, signature.ContactInfo);
    BindPosition();
    BindAppearance();
}

void CDlgDigSign::BindReasons() {
    HWND list = Item(IDC_SIGNATURE_REASON);
    for (const wchar_t* const reason : kReasons)
        SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Translate(reason).c_str()));
    m_reason.Bind(*this, IDC_SIGNATURE_REASON, settings->Security.Digisig.Reason);
}

void CDlgDigSign::BindPosition() {
    auto& signature = settings->Security.Digisig;
    m_page.Bind(*this, IDC_SIGNATURE_PAGE, signature.Page, RangeOf("Security.Digisig.Page"),
                {.spin = IDC_SIGNATURE_PAGE_SPIN});
    m_unit = static_cast<std::int32_t>(LengthUnit::kMillimetres);
    m_units.Bind(*this, IDC_SIGNATURE_UNITS, m_unit, kUnits);
    for (size_t index = 0; index < m_lengths.size(); ++index) {
        const LengthRow& row = kLengths[index];
        m_lengths[index].Bind(*this, row.id, signature.*row.field,
                              {.minimum = 0.0,
                               .maximum = kLongestLength,
                               .step = 0.1,
                               .spin = row.spin,
                               .storedPerUnit = TenthsOfMillimetrePer(LengthUnit::kMillimetres)});
    }
}

void CDlgDigSign::BindAppearance() {
    auto& signature = settings->Security.Digisig;
    m_graphic.BindBits(*this, IDC_SIGNATURE_GRAPHIC, signature.Flags, choices::kGraphicBits,
                       choices::kGraphics, kGraphicRules);
    m_image.Bind(*this, IDC_SIGNATURE_IMAGE, signature.Image);
    for (size_t index = 0; index < m_shownTexts.size(); ++index) {
        m_shownTexts[index].BindBit(*this, kShownTextBoxes[index], signature.Flags,
                                    choices::kShownTexts[index].value);
    }
}

// A length counts as it stands on screen. Bits that the page does not show are stored as 0.
void CDlgDigSign::StorePage() {
    for (CMyEditDouble& length : m_lengths) length.TakeText();
    settings->Security.Digisig.Flags &= choices::kGraphicBits;
    StoreValues();
}

bool CDlgDigSign::OnCommand(Command command) {
    switch (command.id) {
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

// What is on screen is converted, typed or not.
void CDlgDigSign::OnUnitSelected() {
    EnableApply();
    const std::int32_t selected = m_units.SelectedValue();
    if (selected == m_unit || selected == CMyCombobox::kNoSelection) return;
    m_unit = selected;
    for (CMyEditDouble& length : m_lengths)
        length.SetUnit(TenthsOfMillimetrePer(static_cast<LengthUnit>(selected)));
}

}  // namespace

std::unique_ptr<PageWindow> MakeDigitalSignaturePage() {
    return std::make_unique<CDlgDigSign>();
}

}  // namespace vmk
