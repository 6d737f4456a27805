#include "tests/host/scratch_key.h"

#include <gtest/gtest.h>

namespace vmk::test {
namespace {

constexpr const wchar_t* kRoot = L"SOFTWARE\\Orrin Systems\\vmkctrl.PdfPrinterPreferences\\";

}  // namespace

ScratchKey::ScratchKey()
    : m_name(L"vmkprefs test " + std::to_wstring(GetCurrentProcessId())), m_path(kRoot + m_name) {
    RegDeleteTreeW(HKEY_CURRENT_USER, m_path.c_str());
}

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
    ASSERT_EQ(
        RegCreateKeyExW(HKEY_CURRENT_USER, m_path.c_str(), 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr),
        ERROR_SUCCESS);
    RegCloseKey(key);
}

void ScratchKey::SetNumber(const wchar_t* value, DWORD number) const {
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, m_path.c_str(), value, REG_DWORD, &number, sizeof number),
              ERROR_SUCCESS);
}

void ScratchKey::SetText(const wchar_t* value, const std::wstring& text) const {
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, m_path.c_str(), value, REG_SZ, text.c_str(),
                              static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
              ERROR_SUCCESS);
}

std::optional<DWORD> ScratchKey::Number(const wchar_t* value) const {
    DWORD number = 0;
    DWORD size = sizeof number;
    const LSTATUS status =
        RegGetValueW(HKEY_CURRENT_USER, m_path.c_str(), value, RRF_RT_REG_DWORD, nullptr, &number, &size);
    if (status != ERROR_SUCCESS) return std::nullopt;
    return number;
}

}  // namespace vmk::test
