#pragma once

#include <windows.h>

#include <string>
#include <vector>

// The controls of a dialog as an eye sees them, those of the dialogs inside it among them:
//
//     for (const Control& control : ControlsOf(page))
//         if (control.kind == ControlKind::kLabel) ...
//
// For the thread of the dialog: what is measured depends on the resolution that the thread knows.

namespace vmk::test {

enum class ControlKind {
    kPushButton,
    kCheckBox,
    kRadioButton,
    kGroupBox,
    kLabel,
    kEdit,
    kDropDownList,
    kComboBox,  // with a box to type in
    kList,
    kSpin,
    kOther,
};

struct Control {
    HWND window;
    int id;
    ControlKind kind;
    std::wstring className;
    std::wstring text;
    DWORD style;
    RECT place;  // in pixels of the window that is looked at

    int Width() const { return place.right - place.left; }
    int Height() const { return place.bottom - place.top; }
    bool Is(ControlKind one) const { return kind == one; }
    // Whether one types, chooses or clicks in it.
    bool IsUsed() const { return kind != ControlKind::kGroupBox && kind != ControlKind::kLabel; }
};

// The visible controls in z-order, except what lies in the given window. A window with children that is
// nothing but their container is not among them.
std::vector<Control> ControlsOf(HWND view, HWND except = nullptr);

// The visible windows that are nothing but containers.
std::vector<HWND> ContainersOf(HWND view, HWND except = nullptr);

ControlKind KindOf(HWND window);
std::wstring TextOf(HWND window);
// Of a list that drops down.
std::vector<std::wstring> ItemsOf(HWND combo);
// A window's place in pixels of another one's client area.
RECT PlaceIn(HWND window, HWND view);

bool Overlap(const RECT& one, const RECT& other);
bool Contains(const RECT& outer, const RECT& inner);
// Whether two controls have a line in common, one beside the other.
bool ShareRow(const RECT& one, const RECT& other);

// The controls inside a group box, or without one, of one dialog.
struct Group {
    const Control* box;  // null: those without one
    std::vector<const Control*> members;
};
// Group boxes are members of what is around them.
std::vector<Group> GroupsOf(const std::vector<Control>& controls);

}  // namespace vmk::test
