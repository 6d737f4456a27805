#pragma once

#include <windows.h>

namespace vmk {

// Moves each label of a dialog, up or down, to the text line of the box or list beside it: the next one,
// which it names, or else the one before it, whose unit it is. The same holds for check boxes and radio
// buttons. A template cannot say that for every resolution: its units grow with the font, what a box keeps
// free above its text does not.
void PutLabelsOnTextLines(HWND dialog) noexcept;

// Makes the drop-down part of each list of a dialog as wide as its longest item needs. To be called when the
// lists are filled. Throws std::bad_alloc.
void WidenDropDownLists(HWND dialog);

}  // namespace vmk
