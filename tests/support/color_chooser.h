#pragma once

#include <windows.h>
// It needs windows.h before it.
#include <colordlg.h>

#include <string>

#include "tests/support/live_window.h"

// The system's colour dialog:
//
//     const ColorChooser chooser(OpenModal(IDC_LINKS_COLOR));
//     chooser.EnterColor(RGB(255, 128, 0));
//     CloseModal(chooser.Window(), IDOK);

namespace vmk::test {

class ColorChooser {
  public:
    explicit ColorChooser(const LiveWindow& window) : m_window(window) {}

    explicit operator bool() const { return static_cast<bool>(m_window); }
    const LiveWindow& Window() const { return m_window; }

    void EnterColor(COLORREF color) const {
        m_window.EnterText(COLOR_RED, std::to_wstring(GetRValue(color)));
        m_window.EnterText(COLOR_GREEN, std::to_wstring(GetGValue(color)));
        m_window.EnterText(COLOR_BLUE, std::to_wstring(GetBValue(color)));
    }
    COLORREF EnteredColor() const {
        const auto number = [this](UINT id) { return std::stoi(m_window.Text(id)); };
        return RGB(number(COLOR_RED), number(COLOR_GREEN), number(COLOR_BLUE));
    }

    // Makes this colour the first of the custom ones.
    void AddCustomColor(COLORREF color) const {
        m_window.Click(COLOR_MIX);
        EnterColor(color);
        m_window.Click(COLOR_ADD);
    }
    // Clicks the first of the custom colours: the inside of the area's first cell.
    void ClickFirstCustomColor() const {
        RECT area{};
        GetWindowRect(m_window.Control(COLOR_CUSTOM1), &area);
        MapWindowPoints(nullptr, m_window.Handle(), reinterpret_cast<POINT*>(&area), 2);
        const LPARAM cell =
            MAKELPARAM(area.left + (area.right - area.left) / 16, area.top + (area.bottom - area.top) / 4);
        SendMessageW(m_window.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, cell);
        SendMessageW(m_window.Handle(), WM_LBUTTONUP, 0, cell);
    }

  private:
    LiveWindow m_window;
};

}  // namespace vmk::test
