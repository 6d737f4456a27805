#pragma once

#include <windows.h>

namespace vmk {

// What a template cannot say about the texts of its controls, once they are filled.
//
// Each label of the dialog moves, up or down, to the text line of the box or list beside it: the next one,
// which it names, or else the one before it, whose unit it is. The same holds for check boxes and radio
// buttons. What a box keeps free above its text does not grow with the font, as the units of a template do.
//
// The drop-down part of each list becomes as wide as its longest item needs.
//
// Throws std::bad_alloc.
void FitTexts(HWND dialog);

}  // namespace vmk
