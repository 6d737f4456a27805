#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/eyes/control.h"

// The room that a control leaves for its text, and what the text needs in the control's own font:
//
//     for (const Room& room : TextRooms(control)) EXPECT_FALSE(room.IsTooSmall());

namespace vmk::test {

struct Room {
    const char* kind;  // of kinds.h
    std::wstring text;
    SIZE needed;
    SIZE has;

    bool IsTooSmall() const { return needed.cx > has.cx || needed.cy > has.cy; }
};

// One for each text that the control shows or can be made to show. Boxes to type in scroll, so that they have
// none.
std::vector<Room> TextRooms(const Control& control);

// Where the text line of a control has its baseline, in pixels of the window that is looked at: of several
// lines the first one. -1 where there is no text line.
int BaselineOf(const Control& control, HWND view);

// So many pixels of a screen of 96 dots per inch.
int Scaled(int pixels);

}  // namespace vmk::test
