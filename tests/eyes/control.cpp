#include "tests/eyes/control.h"

#include <commctrl.h>

#include <algorithm>
#include <map>
#include <utility>

#include "base/window_text.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

ControlKind KindOfButton(DWORD style) {
    switch (style & BS_TYPEMASK) {
        case BS_CHECKBOX:
        case BS_AUTOCHECKBOX:
        case BS_3STATE:
        case BS_AUTO3STATE:
            return ControlKind::kCheckBox;
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON:
            return ControlKind::kRadioButton;
        case BS_GROUPBOX:
            return ControlKind::kGroupBox;
        default:
            return ControlKind::kPushButton;
    }
}

bool IsContainer(HWND window) {
    const ControlKind kind = KindOf(window);
    return IsDialog(window) ||
           (GetWindow(window, GW_CHILD) && (kind == ControlKind::kLabel || kind == ControlKind::kGroupBox));
}

void Collect(HWND parent, HWND view, HWND except, std::vector<Control>& controls) {
    for (HWND child : ChildrenOf(parent)) {
        if (child == except || !IsWindowVisible(child)) continue;
        const ControlKind kind = KindOf(child);
        if (!IsContainer(child) || kind == ControlKind::kGroupBox)
            controls.push_back({.window = child,
                                .id = GetDlgCtrlID(child),
                                .kind = kind,
                                .className = ClassOf(child),
                                .text = TextOf(child),
                                .style = static_cast<DWORD>(GetWindowLongW(child, GWL_STYLE)),
                                .place = PlaceIn(child, view)});
        if (IsContainer(child)) Collect(child, view, except, controls);
    }
}

void CollectContainers(HWND parent, HWND except, std::vector<HWND>& containers) {
    for (HWND child : ChildrenOf(parent)) {
        if (child == except || !IsWindowVisible(child) || !IsContainer(child)) continue;
        if (KindOf(child) != ControlKind::kGroupBox) containers.push_back(child);
        CollectContainers(child, except, containers);
    }
}

}  // namespace

std::vector<HWND> ContainersOf(HWND view, HWND except) {
    std::vector<HWND> containers;
    CollectContainers(view, except, containers);
    return containers;
}

std::vector<Control> ControlsOf(HWND view, HWND except) {
    std::vector<Control> controls;
    Collect(view, view, except, controls);
    return controls;
}

ControlKind KindOf(HWND window) {
    const std::wstring name = ClassOf(window);
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    if (name == WC_BUTTONW) return KindOfButton(style);
    if (name == WC_COMBOBOXW)
        return (style & 3) == CBS_DROPDOWNLIST ? ControlKind::kDropDownList : ControlKind::kComboBox;
    const std::map<std::wstring, ControlKind> kinds = {{WC_STATICW, ControlKind::kLabel},
                                                       {WC_EDITW, ControlKind::kEdit},
                                                       {WC_LISTVIEWW, ControlKind::kList},
                                                       {UPDOWN_CLASSW, ControlKind::kSpin}};
    const auto found = kinds.find(name);
    return found == kinds.end() ? ControlKind::kOther : found->second;
}

std::wstring TextOf(HWND window) {
    return WindowText(window);
}

std::vector<std::wstring> ItemsOf(HWND combo) {
    std::vector<std::wstring> items;
    const auto count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
    for (WPARAM index = 0; static_cast<LRESULT>(index) < count; ++index) {
        std::wstring text(static_cast<std::size_t>(SendMessageW(combo, CB_GETLBTEXTLEN, index, 0)), L'\0');
        SendMessageW(combo, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
        items.push_back(std::move(text));
    }
    return items;
}

RECT PlaceIn(HWND window, HWND view) {
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, view, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

bool Overlap(const RECT& one, const RECT& other) {
    return one.left < other.right && other.left < one.right && one.top < other.bottom &&
           other.top < one.bottom;
}

bool Contains(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && inner.right <= outer.right && outer.top <= inner.top &&
           inner.bottom <= outer.bottom;
}

bool ShareRow(const RECT& one, const RECT& other) {
    return one.top < other.bottom && other.top < one.bottom;
}

std::vector<Group> GroupsOf(const std::vector<Control>& controls) {
    std::vector<Group> groups = {{.box = nullptr, .members = {}}};
    for (const Control& control : controls)
        if (control.Is(ControlKind::kGroupBox)) groups.push_back({.box = &control, .members = {}});
    for (const Control& control : controls) {
        Group* home = &groups.front();
        for (Group& group : groups) {
            const bool isInside =
                group.box && group.box != &control && Overlap(group.box->place, control.place);
            // Of boxes inside one another the smallest one counts.
            if (isInside && !control.Is(ControlKind::kGroupBox) &&
                (!home->box || Contains(home->box->place, group.box->place)))
                home = &group;
        }
        home->members.push_back(&control);
    }
    return groups;
}

}  // namespace vmk::test
