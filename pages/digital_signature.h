#pragma once

#include <array>

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_double.h"
#include "controls/edit_int.h"
#include "controls/edit_text.h"
#include "pages/length_unit.h"
#include "pages/page.h"

namespace vmk {

// Sets up the digital signature of the document.
class CDlgDigSign final : public CPage {
  public:
    CDlgDigSign();

  private:
    // One of the four lengths of the signature's rectangle.
    struct Length {
        CMyEditDouble edit;
        double number = 0.0;  // in millimetres, as it was stored
    };

    // One of the texts that the visible signature may show.
    struct ShownText {
        CMyCheckbox box;
        std::int32_t isShown = 0;
    };

    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;
    std::span<const Spin> Spins() override { return m_spins; }

    void LoadCertificate();
    void LoadReasons();
    void LoadPosition();
    void LoadAppearance();
    std::array<std::int32_t*, 4> StoredLengths() const;
    void NoteStoredLengths();
    std::int32_t Flags() const;

    void OnEnableClicked();
    void OnUnitSelected();

    CMyCheckbox m_enable;
    CMyEditText m_file;
    CMyEditText m_password;
    CMyEditText m_location;
    CMyEditText m_contact;
    CMyEditInt m_page;
    CMyCombobox m_units;
    std::int32_t m_unit = 0;
    std::array<Length, 4> m_lengths;  // left, top, width, height
    CMyCombobox m_graphic;
    std::int32_t m_graphicKind = 0;
    CMyEditText m_image;
    std::array<ShownText, 6> m_shownTexts;
    const std::array<Spin, 5> m_spins;
};

}  // namespace vmk
