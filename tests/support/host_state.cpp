#include "tests/support/host_state.h"

#include <windows.h>
// objbase.h needs windows.h before it.
#include <objbase.h>

#include <cfloat>
#include <clocale>
#include <cstdint>
#include <iterator>
#include <sstream>

#include "base/library.h"

namespace vmk::test {
namespace {

std::string Hex(std::uintptr_t value) {
    std::ostringstream text;
    text << std::hex << value;
    return text.str();
}

std::string Hex(const void* value) {
    return Hex(reinterpret_cast<std::uintptr_t>(value));
}

std::string ActivationContext() {
    HANDLE context = nullptr;
    if (!GetCurrentActCtx(&context)) return "none";
    ReleaseActCtx(context);
    return Hex(context);
}

// Not all systems have contexts.
std::string DpiContext() {
    auto* const current =
        EntryPoint<void*()>(GetModuleHandleW(L"user32.dll"), "GetThreadDpiAwarenessContext");
    return current ? Hex(current()) : "none";
}

std::string CurrentFolder() {
    char folder[MAX_PATH] = {};
    GetCurrentDirectoryA(MAX_PATH, folder);
    return folder;
}

std::string Apartment() {
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    const HRESULT result = CoGetApartmentType(&type, &qualifier);
    return Hex(static_cast<std::uint32_t>(result)) + " " + std::to_string(type) + " " +
           std::to_string(qualifier);
}

std::string MouseCage() {
    RECT cage{};
    GetClipCursor(&cage);
    std::ostringstream text;
    text << cage.left << " " << cage.top << " " << cage.right << " " << cage.bottom;
    return text.str();
}

// Menus, moving and sizing that are still going on.
std::string GuiMode() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetCurrentThreadId(), &info);
    return Hex(info.flags & ~static_cast<DWORD>(GUI_CARETBLINKING));
}

struct Fact {
    const char* name;
    std::string (*read)();
};

constexpr Fact kFacts[] = {
    {"focus", [] { return Hex(GetFocus()); }},
    {"active window", [] { return Hex(GetActiveWindow()); }},
    {"captured mouse", [] { return Hex(GetCapture()); }},
    {"caged mouse", MouseCage},
    {"menus, moving, sizing", GuiMode},
    {"activation context", ActivationContext},
    {"DPI context", DpiContext},
    {"apartment", Apartment},
    {"current folder", CurrentFolder},
    {"thread's locale", [] { return Hex(GetThreadLocale()); }},
    {"thread's language", [] { return Hex(GetThreadUILanguage()); }},
    {"keyboard layout", [] { return Hex(GetKeyboardLayout(0)); }},
    {"C locale", [] { return std::string(std::setlocale(LC_ALL, nullptr)); }},
    {"error mode", [] { return Hex(GetErrorMode()); }},
    {"floating point", [] { return Hex(_controlfp(0, 0)); }},
    {"thread's priority", [] { return std::to_string(GetThreadPriority(GetCurrentThread())); }},
};

// The system adds windows of its own for input methods.
bool IsInputMethod(HWND window) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return std::wstring_view(name) == L"IME";
}

BOOL CALLBACK NoteWindow(HWND window, LPARAM facts) {
    if (IsInputMethod(window)) return TRUE;
    std::string state = IsWindowEnabled(window) ? "enabled" : "disabled";
    state += IsWindowVisible(window) ? ", visible" : ", hidden";
    reinterpret_cast<std::map<std::string, std::string>*>(facts)->insert_or_assign("window " + Hex(window),
                                                                                   state);
    return TRUE;
}

std::string Value(const std::map<std::string, std::string>& facts, const std::string& name) {
    const auto found = facts.find(name);
    return found == facts.end() ? "none" : found->second;
}

}  // namespace

HostState HostState::Now() {
    HostState state;
    for (const Fact& fact : kFacts) state.m_facts.emplace(fact.name, fact.read());
    EnumThreadWindows(GetCurrentThreadId(), NoteWindow, reinterpret_cast<LPARAM>(&state.m_facts));
    return state;
}

std::string ChangesSince(const HostState& before) {
    const HostState now = HostState::Now();
    std::map<std::string, std::string> names = before.Facts();
    names.insert(now.Facts().begin(), now.Facts().end());
    std::string changes;
    for (const auto& [name, value] : names) {
        const std::string was = Value(before.Facts(), name);
        const std::string is = Value(now.Facts(), name);
        if (was != is) changes += name + ": " + was + " -> " + is + "\n";
    }
    return changes;
}

OpenedDialog OpenAndCompare(IPdfPrinterPreferences& object, LONG language) {
    const HostState before = HostState::Now();
    OpenedDialog opened{};
    opened.result = object.OpenDialog(language, &opened.answer);
    opened.hostChanges = ChangesSince(before);
    return opened;
}

}  // namespace vmk::test
