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
    switch (KindOf(window)) {
        case ControlKind::kEdit:
        case ControlKind::kDropDownList:
        case ControlKind::kComboBox:
        case ControlKind::kList:
        case ControlKind::kSpin:
            return LabelOf(window);
        default:
            return AccessibleOf(window).name;
    }
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
