#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "framework/image_list.h"
#include "pages/fonts/font_list.h"

namespace vmk {

// A list control of face names, each with the icon of its flags, that sorts by itself. Borrows the control.
class FontListView {
  public:
    explicit FontListView(HWND list) noexcept : m_list(list) {}

    // Gives the control its icons, which it does not own, and its one column, beside which a scroll bar fits.
    void Prepare(HIMAGELIST icons) const noexcept;

    void Clear() const noexcept;
    // Throws std::bad_alloc when a face finds no room; some of the others may be there by then.
    void Insert(std::vector<FontFace> faces) const;

    // The selected items, from top to bottom.
    std::vector<FontFace> Selected() const;
    void DeleteSelected() const noexcept;

    // The names in the order on screen.
    std::vector<std::wstring> Names() const;

  private:
    FontFace Face(int item) const;

    HWND m_list;
};

}  // namespace vmk
