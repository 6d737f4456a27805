#include "tests/support/scratch_key.h"

#include <windows.h>

#include <atomic>
#include <stdexcept>
#include <string_view>

namespace vmk::test {
namespace {

// Spelled out once more: hosts and existing data rely on it.
constexpr std::wstring_view kRoot = L"SOFTWARE\\Orrin Systems\\vmkctrl.PdfPrinterPreferences\\";

std::wstring NewSubKey() {
    static std::atomic<int> count = 0;
    return L"Tests " + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++count);
}

std::wstring Wide(std::string_view name) {
    return {name.begin(), name.end()};
}

void Require(LSTATUS status) {
    if (status != ERROR_SUCCESS) throw std::runtime_error("the registry refuses a test's value");
}

}  // namespace

ScratchKey::ScratchKey() : m_subKey(NewSubKey()), m_path(std::wstring(kRoot) + m_subKey) {}

ScratchKey::~ScratchKey() {
    RegDeleteTreeW(HKEY_CURRENT_USER, m_path.c_str());
}

bool ScratchKey::Exists() const {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, m_path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
}

void ScratchKey::Create() const {
    HKEY key = nullptr;
    Require(
        RegCreateKeyExW(HKEY_CURRENT_USER, m_path.c_str(), 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr));
    RegCloseKey(key);
}

void ScratchKey::SetNumber(const char* name, std::int32_t value) const {
    Require(RegSetKeyValueW(HKEY_CURRENT_USER, m_path.c_str(), Wide(name).c_str(), REG_DWORD, &value,
                            sizeof(value)));
}

void ScratchKey::SetText(const char* name, const std::wstring& value) const {
    Require(RegSetKeyValueW(HKEY_CURRENT_USER, m_path.c_str(), Wide(name).c_str(), REG_SZ, value.c_str(),
                            static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))));
}

std::optional<std::int32_t> ScratchKey::Number(const char* name) const {
    std::int32_t value = 0;
    DWORD size = sizeof(value);
    if (RegGetValueW(HKEY_CURRENT_USER, m_path.c_str(), Wide(name).c_str(), RRF_RT_REG_DWORD, nullptr, &value,
                     &size) != ERROR_SUCCESS)
        return std::nullopt;
    return value;
}

std::optional<std::wstring> ScratchKey::Text(const char* name) const {
    DWORD size = 0;
    const auto get = [&](wchar_t* data) {
        return RegGetValueW(HKEY_CURRENT_USER, m_path.c_str(), Wide(name).c_str(), RRF_RT_REG_SZ, nullptr,
                            data, &size) == ERROR_SUCCESS;
    };
    if (!get(nullptr)) return std::nullopt;
    std::wstring text(size / sizeof(wchar_t) + 1, L'\0');
    size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    get(text.data());
    return text.c_str();
}

int ScratchKey::Count() const {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, m_path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return 0;
    DWORD count = 0;
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, nullptr, nullptr,
                     nullptr, nullptr);
    RegCloseKey(key);
    return static_cast<int>(count);
}

}  // namespace vmk::test
