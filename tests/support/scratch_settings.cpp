#include "tests/support/scratch_settings.h"

#include <windows.h>

#include <atomic>
#include <vector>

#include "settings/page_set.h"
#include "settings/registry_path.h"
#include "settings/settings_key.h"

namespace vmk::test {
namespace {

std::wstring NewSubKey() {
    static std::atomic<int> count = 0;
    return L"Tests-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++count);
}

std::wstring FullPath(const std::wstring& subKey) {
    const std::string root = kRegistryRoot;
    return std::wstring(root.begin(), root.end()) + subKey;
}

std::wstring Wide(const char* name) {
    const std::string narrow = name;
    return {narrow.begin(), narrow.end()};
}

}  // namespace

ScratchSettings::ScratchSettings() : m_subKey(NewSubKey()) {
    OpenSettingsKey(m_subKey.c_str(), KeyAccess::kReadWrite);
}

ScratchSettings::~ScratchSettings() {
    RegDeleteTreeW(HKEY_CURRENT_USER, FullPath(m_subKey).c_str());
}

void ScratchSettings::SetNumber(const char* name, std::int32_t value) const {
    RegSetKeyValueW(HKEY_CURRENT_USER, FullPath(m_subKey).c_str(), Wide(name).c_str(), REG_DWORD, &value,
                    sizeof(value));
}

void ScratchSettings::SetText(const char* name, const std::wstring& value) const {
    RegSetKeyValueW(HKEY_CURRENT_USER, FullPath(m_subKey).c_str(), Wide(name).c_str(), REG_SZ, value.c_str(),
                    static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

void ScratchSettings::Store(const PrinterSettings& settings) const {
    StoreToRegistry(page_bit::kAllPages, m_subKey.c_str(), settings);
}

std::optional<std::int32_t> ScratchSettings::Number(const char* name) const {
    std::int32_t value = 0;
    DWORD size = sizeof(value);
    if (RegGetValueW(HKEY_CURRENT_USER, FullPath(m_subKey).c_str(), Wide(name).c_str(), RRF_RT_REG_DWORD,
                     nullptr, &value, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return value;
}

std::optional<std::wstring> ScratchSettings::Text(const char* name) const {
    const std::wstring path = FullPath(m_subKey);
    DWORD size = 0;
    if (RegGetValueW(HKEY_CURRENT_USER, path.c_str(), Wide(name).c_str(), RRF_RT_REG_SZ, nullptr, nullptr,
                     &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::wstring text(size / sizeof(wchar_t) + 1, L'\0');
    size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    RegGetValueW(HKEY_CURRENT_USER, path.c_str(), Wide(name).c_str(), RRF_RT_REG_SZ, nullptr, text.data(),
                 &size);
    return text.c_str();
}

int ScratchSettings::Count() const {
    const SettingsKey opened = OpenSettingsKey(m_subKey.c_str(), KeyAccess::kRead);
    DWORD count = 0;
    RegQueryInfoKeyW(opened.key.get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, nullptr,
                     nullptr, nullptr, nullptr);
    return static_cast<int>(count);
}

PrinterSettings ScratchSettings::Load() const {
    PrinterSettings settings;
    LoadFromRegistry(page_bit::kAllPages, m_subKey.c_str(), settings);
    return settings;
}

}  // namespace vmk::test
