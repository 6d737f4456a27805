#include "language/translator.h"

#include <array>
#include <cstddef>
#include <new>

#include "base/child_windows.h"
#include "base/window_text.h"
#include "language/language_session.h"

namespace vmk {
namespace {

bool IsPasswordEdit(HWND window) {
    std::array<wchar_t, 15> className{};  // 14 characters tell an edit from everything else
    GetClassNameW(window, className.data(), static_cast<int>(className.size()));
    return CompareStringOrdinal(className.data(), -1, L"edit", -1, TRUE) == CSTR_EQUAL &&
           (GetWindowLongPtrW(window, GWL_STYLE) & ES_PASSWORD) != 0;
}

std::wstring ItemText(HMENU menu, UINT position) {
    std::wstring text;
    const int length = GetMenuStringW(menu, position, nullptr, 0, MF_BYPOSITION);
    text.resize(static_cast<std::size_t>(length));
    // The terminator has its place behind the text.
    GetMenuStringW(menu, position, text.data(), length + 1, MF_BYPOSITION);
    return text;
}

}  // namespace

Translator::Translator() = default;
Translator::~Translator() = default;

bool Translator::OpenLanguageSession(const std::string& folder, std::wstring_view product) {
    m_session.reset();
    try {
        m_session = std::make_unique<LanguageSession>(folder, product);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

bool Translator::SelectLanguage(std::uint32_t langid) {
    return m_session && m_session->SelectLanguage(langid);
}

bool Translator::HasLanguage() const {
    return m_session && m_session->Current() >= 0;
}

std::wstring Translator::TranslateString(std::wstring_view text) const {
    return std::wstring(m_session ? m_session->TranslateString(text) : text);
}

void Translator::TranslateWindow(HWND window, bool withChildren) const {
    if (!m_session || !IsWindow(window)) return;
    if (withChildren)
        for (HWND child : ChildWindows(window)) TranslateWindow(child, true);
    if (IsPasswordEdit(window)) return;
    const std::wstring text = WindowText(window);
    if (!text.empty()) SetWindowTextW(window, TranslateString(text).c_str());
}

void Translator::TranslateMenu(HMENU menu) const {
    if (!m_session) return;
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        const auto position = static_cast<UINT>(i);
        MENUITEMINFOW item{};
        item.cbSize = sizeof(item);
        item.fMask = MIIM_FTYPE | MIIM_SUBMENU;
        if (!GetMenuItemInfoW(menu, position, TRUE, &item)) continue;
        std::wstring text = ItemText(menu, position);
        if (!text.empty() && (item.fType & MFT_SEPARATOR) == 0) {
            text = TranslateString(text);
            MENUITEMINFOW change{};
            change.cbSize = sizeof(change);
            change.fMask = MIIM_STRING;
            change.dwTypeData = text.data();
            SetMenuItemInfoW(menu, position, TRUE, &change);
        }
        if (item.hSubMenu) TranslateMenu(item.hSubMenu);
    }
}

}  // namespace vmk
