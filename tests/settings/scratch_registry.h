#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "base/registry_key.h"

// A place in the real registry for one test, gone afterwards.

namespace vmk {

// What a value holds, as a program sees it that uses the narrow functions.
struct StoredValue {
    DWORD type = REG_NONE;
    std::string bytes;

    bool operator==(const StoredValue&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const StoredValue& value) {
        return out << "type " << value.type << ", " << value.bytes.size()
                   << " bytes: " << testing::PrintToString(value.bytes);
    }
};

inline StoredValue NumberValue(DWORD number) {
    return {REG_DWORD, std::string(reinterpret_cast<const char*>(&number), sizeof number)};
}

// A terminated text.
inline StoredValue TextValue(std::string_view text) {
    return {REG_SZ, std::string(text) + '\0'};
}

// The narrow functions take the bytes; what follows them in memory is no zero, so that no terminator is
// added.
inline void SetValue(HKEY key, const char* name, DWORD type, std::string_view bytes) {
    const std::string data = std::string(bytes) + "\x01\x01";
    ASSERT_EQ(RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(data.data()),
                             static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
}

inline void SetNumber(HKEY key, const char* name, DWORD number) {
    SetValue(key, name, REG_DWORD, NumberValue(number).bytes);
}

inline void SetText(HKEY key, const char* name, std::string_view text) {
    SetValue(key, name, REG_SZ, TextValue(text).bytes);
}

inline std::optional<StoredValue> GetValue(HKEY key, const char* name) {
    StoredValue value;
    DWORD size = 0;
    if (RegQueryValueExA(key, name, nullptr, &value.type, nullptr, &size) != ERROR_SUCCESS) return {};
    value.bytes.resize(size);
    if (RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(value.bytes.data()), &size) !=
        ERROR_SUCCESS)
        return {};
    value.bytes.resize(size);
    return value;
}

inline DWORD ValueCount(HKEY key) {
    DWORD count = 0;
    EXPECT_EQ(RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, nullptr,
                               nullptr, nullptr, nullptr),
              ERROR_SUCCESS);
    return count;
}

inline std::vector<std::string> SubKeys(HKEY key) {
    std::vector<std::string> names;
    char name[256];
    DWORD length = sizeof name;
    for (DWORD index = 0;
         RegEnumKeyExA(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++index) {
        names.emplace_back(name, length);
        length = sizeof name;
    }
    return names;
}

// Tests on one open key.
class ScratchKeyTest : public testing::Test {
  protected:
    void SetUp() override {
        RegDeleteTreeA(HKEY_CURRENT_USER, kPath);
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, kPath, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                  KEY_ALL_ACCESS, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        m_key.attach(key);
    }

    void TearDown() override {
        m_key.reset();
        EXPECT_EQ(RegDeleteTreeA(HKEY_CURRENT_USER, kPath), ERROR_SUCCESS);
    }

    HKEY Key() const { return m_key.get(); }

  private:
    static constexpr char kPath[] = "SOFTWARE\\vmkctrl settings tests";

    UniqueRegistryKey m_key;
};

}  // namespace vmk
