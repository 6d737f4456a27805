#include "tests/chaos/raw_values.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace vmk::test {
namespace {

constexpr std::wstring_view kRoot = L"SOFTWARE\\Orrin Systems\\vmkctrl.PdfPrinterPreferences\\";

void Require(LSTATUS status) {
    if (status != ERROR_SUCCESS) throw std::runtime_error("the registry refuses what a test asks for");
}

std::wstring Wide(const std::string& name) {
    return {name.begin(), name.end()};
}

}  // namespace

RawValue RawNumber(DWORD number) {
    return {.type = REG_DWORD, .bytes = std::string(reinterpret_cast<const char*>(&number), sizeof number)};
}

std::string Utf16Of(const std::wstring& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

RawValue RawText(const std::wstring& text) {
    return {.type = REG_SZ, .bytes = Utf16Of(text + L'\0')};
}

std::string Describe(const RawValue& value) {
    constexpr std::size_t kShown = 24;
    std::string text =
        "type " + std::to_string(value.type) + ", " + std::to_string(value.bytes.size()) + " bytes:";
    for (const char byte : value.bytes.substr(0, kShown)) {
        constexpr char kDigits[] = "0123456789abcdef";
        const auto code = static_cast<unsigned char>(byte);
        text += {' ', kDigits[code / 16], kDigits[code % 16]};
    }
    return text;
}

RawKey::RawKey() {
    const std::wstring path = std::wstring(kRoot) + SubKey();
    Require(RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                            m_key.put(), nullptr));
}

void RawKey::Set(const std::string& name, const RawValue& value) const {
    // The system takes a zero behind a text for a terminator that was not counted.
    const std::string padded = value.bytes + "\x01\x01\x01";
    Require(RegSetValueExW(get(), Wide(name).c_str(), 0, value.type,
                           reinterpret_cast<const BYTE*>(padded.data()),
                           static_cast<DWORD>(value.bytes.size())));
}

void RawKey::Set(const RawValues& values) const {
    for (const auto& [name, value] : values) Set(name, value);
}

void RawKey::Remove(const std::string& name) const {
    RegDeleteValueW(get(), Wide(name).c_str());
}

RawValues RawKey::Values() const {
    DWORD longest = 0;
    Require(RegQueryInfoKeyW(get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                             &longest, nullptr, nullptr));
    std::string bytes(longest + 1, '\0');
    RawValues values;
    for (DWORD index = 0;; ++index) {
        wchar_t name[256];
        DWORD length = static_cast<DWORD>(std::size(name));
        DWORD size = static_cast<DWORD>(bytes.size());
        DWORD type = REG_NONE;
        const LSTATUS status = RegEnumValueW(get(), index, name, &length, nullptr, &type,
                                             reinterpret_cast<BYTE*>(bytes.data()), &size);
        if (status == ERROR_NO_MORE_ITEMS) return values;
        Require(status);
        std::string narrow(length, '\0');
        std::transform(name, name + length, narrow.begin(),
                       [](wchar_t unit) { return static_cast<char>(unit); });
        values.emplace(narrow, RawValue{.type = type, .bytes = bytes.substr(0, size)});
    }
}

}  // namespace vmk::test
