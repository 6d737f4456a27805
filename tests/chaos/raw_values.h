#pragma once

#include <windows.h>

#include <map>
#include <string>

#include "base/registry_key.h"
#include "tests/support/scratch_key.h"

// What lies in the registry, byte for byte, past the conversions of the narrow functions:
//
//     const RawKey key;
//     key.Set("Paper.Nup", {.type = REG_SZ, .bytes = "4"});  // of odd length
//     EXPECT_EQ(key.Values(), values);

namespace vmk::test {

struct RawValue {
    DWORD type = REG_NONE;
    std::string bytes;

    bool operator==(const RawValue&) const = default;
};
using RawValues = std::map<std::string, RawValue>;  // by name

RawValue RawNumber(DWORD number);
// UTF-16, terminated.
RawValue RawText(const std::wstring& text);
std::string Utf16Of(const std::wstring& text);

// For messages: the type, the size and the first bytes.
std::string Describe(const RawValue& value);

// A scratch key of the settings, open.
class RawKey : public ScratchKey {
  public:
    RawKey();

    HKEY get() const { return m_key.get(); }
    // The bytes as they are: the system adds no terminator.
    void Set(const std::string& name, const RawValue& value) const;
    void Set(const RawValues& values) const;
    void Remove(const std::string& name) const;
    // All that is there.
    RawValues Values() const;

  private:
    UniqueRegistryKey m_key;
};

}  // namespace vmk::test
