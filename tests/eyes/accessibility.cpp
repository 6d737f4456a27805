#include "tests/eyes/accessibility.h"

#include <oleacc.h>

#include "base/com_pointer.h"
#include "tests/eyes/control.h"

namespace vmk::test {
namespace {

std::wstring Taken(BSTR text) {
    std::wstring taken = text ? std::wstring(text, SysStringLen(text)) : std::wstring();
    SysFreeString(text);
    return taken;
}

VARIANT Itself() {
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
}

// What such a control shows is no name.
bool IsShowingItsValue(ControlKind kind) {
    switch (kind) {
        case ControlKind::kEdit:
        case ControlKind::kDropDownList:
        case ControlKind::kComboBox:
        case ControlKind::kList:
        case ControlKind::kSpin:
            return true;
        default:
            return false;
    }
}

LONG RoleOf(ControlKind kind) {
    switch (kind) {
        case ControlKind::kPushButton:
            return ROLE_SYSTEM_PUSHBUTTON;
        case ControlKind::kCheckBox:
            return ROLE_SYSTEM_CHECKBUTTON;
        case ControlKind::kRadioButton:
            return ROLE_SYSTEM_RADIOBUTTON;
        case ControlKind::kGroupBox:
            return ROLE_SYSTEM_GROUPING;
        case ControlKind::kLabel:
            return ROLE_SYSTEM_STATICTEXT;
        case ControlKind::kEdit:
            return ROLE_SYSTEM_TEXT;
        case ControlKind::kDropDownList:
        case ControlKind::kComboBox:
            return ROLE_SYSTEM_COMBOBOX;
        case ControlKind::kList:
            return ROLE_SYSTEM_LIST;
        case ControlKind::kSpin:
            return ROLE_SYSTEM_SPINBUTTON;
        default:
            return ROLE_SYSTEM_CLIENT;
    }
}

LONG NumberIn(const VARIANT& value) {
    return value.vt == VT_I4 ? value.lVal : 0;
}

}  // namespace

Accessible AccessibleOf(HWND window) {
    ComPointer<IAccessible> object;
    if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                          reinterpret_cast<void**>(object.put()))))
        return {};
    BSTR name = nullptr;
    BSTR value = nullptr;
    VARIANT role{};
    VARIANT state{};
    object->get_accName(Itself(), &name);
    object->get_accValue(Itself(), &value);
    object->get_accRole(Itself(), &role);
    object->get_accState(Itself(), &state);
    return {.name = Taken(name), .value = Taken(value), .role = NumberIn(role), .state = NumberIn(state)};
}

bool IsKnown(const Accessible& said) {
    return said.role != 0 && said.role != ROLE_SYSTEM_CLIENT;
}

std::string WrongIn(const Accessible& said, const Control& control) {
    std::string wrong;
    const auto expect = [&](const char* what, bool is) {
        if (!is) wrong += std::string(wrong.empty() ? "" : ", ") + what;
    };
    const auto expectState = [&](const char* what, LONG state, bool isSo) {
        expect(what, ((said.state & state) != 0) == isSo);
    };
    expectState("state unavailable", STATE_SYSTEM_UNAVAILABLE, IsWindowEnabled(control.window) == FALSE);
    expectState("state invisible", STATE_SYSTEM_INVISIBLE, false);
    if (!IsShowingItsValue(control.kind)) expect("name", said.name == WithoutAccessKey(control.text));
    if (!IsKnown(said)) return wrong;
    expect("role", said.role == RoleOf(control.kind));
    if (IsShowingItsValue(control.kind)) expect("name", said.name == LabelOf(control.window));
    if (control.Is(ControlKind::kEdit)) {
        const bool isPassword = (control.style & ES_PASSWORD) != 0;
        expect("value", said.value == (isPassword ? std::wstring() : control.text));
        expectState("state protected", STATE_SYSTEM_PROTECTED, isPassword);
        expectState("state read-only", STATE_SYSTEM_READONLY, (control.style & ES_READONLY) != 0);
    }
    if (control.Is(ControlKind::kCheckBox) || control.Is(ControlKind::kRadioButton))
        expectState("state checked", STATE_SYSTEM_CHECKED,
                    SendMessageW(control.window, BM_GETCHECK, 0, 0) == BST_CHECKED);
    if (control.Is(ControlKind::kDropDownList) || control.Is(ControlKind::kComboBox))
        expect("value", said.value == control.text);
    return wrong;
}

std::wstring LabelOf(HWND window) {
    for (HWND before = GetWindow(window, GW_HWNDPREV); before; before = GetWindow(before, GW_HWNDPREV)) {
        const ControlKind kind = KindOf(before);
        if (kind == ControlKind::kLabel) return WithoutAccessKey(TextOf(before));
        // The arrows beside a box have its name.
        if (KindOf(window) != ControlKind::kSpin || kind != ControlKind::kEdit) break;
    }
    return {};
}

std::wstring NameOf(HWND window) {
    return IsShowingItsValue(KindOf(window)) ? LabelOf(window) : AccessibleOf(window).name;
}

std::wstring WithoutAccessKey(const std::wstring& text) {
    std::wstring read;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == L'&' && ++at == text.size()) break;
        read += text[at];
    }
    return read;
}

wchar_t AccessKeyOf(const std::wstring& text) {
    for (std::size_t at = 0; at + 1 < text.size(); ++at) {
        if (text[at] != L'&') continue;
        if (text[++at] == L'&') continue;
        wchar_t key = text[at];
        CharUpperBuffW(&key, 1);
        return key;
    }
    return 0;
}

}  // namespace vmk::test
