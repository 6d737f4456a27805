#pragma once

#include <array>

#include "base/gdi.h"
#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_double.h"
#include "pages/page.h"

namespace vmk {

// Chooses what becomes a link and how links look.
class CDlgLinks final : public CPage {
  public:
    CDlgLinks();

  private:
    using Settings = decltype(PrinterSettings::Links);

    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;
    std::span<const Spin> Spins() override { return m_spins; }

    void ShowDetection(const Settings& shown);
    void OnAnalizeClicked();
    void PickColor();
    void ShowDefaults();
    void PaintColorButton();

    CMyCheckbox m_analize;
    CMyCheckbox m_filesAnalize;
    CMyCheckbox m_filesCheck;
    CMyCombobox m_type;
    CMyCombobox m_style;
    CMyEditDouble m_width;
    const std::array<Spin, 1> m_spins;
    double m_widthInPoints = 0.0;
    COLORREF m_color = 0;
    UniqueBitmap m_colorFace;
};

}  // namespace vmk
