#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "base/window_text.h"
#include "tests/support/live_window.h"

// The system's open-file dialog:
//
//     const FileChooser chooser(OpenModal(IDC_OVERLAY_BROWSE));
//     chooser.EnterName(L"C:\\overlay.pdf");
//     CloseModal(chooser.Window(), IDOK);

namespace vmk::test {

class FileChooser {
  public:
    explicit FileChooser(const LiveWindow& window) : m_window(window) {}

    explicit operator bool() const { return static_cast<bool>(m_window) && NameBox(); }
    const LiveWindow& Window() const { return m_window; }

    std::wstring ProposedName() const { return WindowText(NameBox()); }
    void EnterName(const std::wstring& name) const {
        SendMessageW(NameBox(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }

    std::vector<std::wstring> Types() const { return m_window.Items(kTypeList); }
    std::wstring SelectedType() const { return m_window.Selected(kTypeList); }

  private:
    // The numbers that programs have always known the controls by.
    static constexpr UINT kTypeList = 0x470;
    static constexpr UINT kNameCombo = 0x47C;

    // The box in which the file's name is typed.
    HWND NameBox() const {
        HWND combo = FindWindowExW(m_window.Control(kNameCombo), nullptr, L"ComboBox", nullptr);
        return FindWindowExW(combo, nullptr, L"Edit", nullptr);
    }

    LiveWindow m_window;
};

}  // namespace vmk::test
