#pragma once

#include <windows.h>

#include <string>

#include "tests/eyes/control.h"

// What a screen reader is told of a control:
//
//     EXPECT_EQ(AccessibleOf(box).name, L"Use PDF security");
//
// For the thread of the control, which needs COM.

namespace vmk::test {

struct Accessible {
    std::wstring name;
    std::wstring value;
    LONG role = 0;
    LONG state = 0;
};

// What the system's accessibility library answers for a window.
Accessible AccessibleOf(HWND window);

// What of that does not go with what the control is, in plain words; empty when all does. Of a class that the
// library knows nothing about, name, value and role are the library's own business.
std::string WrongIn(const Accessible& said, const Control& control);
// Whether the library knows what the control is.
bool IsKnown(const Accessible& said);

// The static text that names a control, as a screen reader looks for it: the one before it in z-order, on
// screen or not, with nothing between them but boxes of the same label. Empty when there is none.
std::wstring LabelOf(HWND window);

// The name that a control has: that of its label where what it shows is its value, else what the library
// answers. Where no label is near, some libraries take one that stands anywhere before; that is nobody's
// name.
std::wstring NameOf(HWND window);

// A text as it is read out: without the mark of the access key.
std::wstring WithoutAccessKey(const std::wstring& text);
// The access key in a text, in capitals; 0 when it has none.
wchar_t AccessKeyOf(const std::wstring& text);

}  // namespace vmk::test
