#pragma once

#include <array>

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_int.h"
#include "pages/page.h"

namespace vmk {

// Chooses what is compressed and how.
class CDlgCompression final : public CPage {
  public:
    CDlgCompression();

  private:
    using Settings = decltype(PrinterSettings::Compression);

    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;
    std::span<const Spin> Spins() override { return m_spins; }

    void ShowGraphics(const Settings& shown);
    void SelectMethods(const Settings& shown);
    void OnGraphicsClicked();
    void ShowDefaults();

    CMyCheckbox m_graphics;
    CMyCheckbox m_ascii;
    CMyCheckbox m_text;
    CMyCombobox m_colorMethod;
    CMyEditInt m_quality;
    CMyCombobox m_indexedMethod;
    CMyCombobox m_monoMethod;
    const std::array<Spin, 1> m_spins;
};

}  // namespace vmk
