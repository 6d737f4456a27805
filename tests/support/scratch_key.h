#pragma once

#include <cstdint>
#include <optional>
#include <string>

// A settings key as a host has it:
//
//     const ScratchKey key;
//     key.SetNumber("Paper.Nup", 4);
//     object->InitFromRegistry(AllPages, AutomationString(key.SubKey()).get());

namespace vmk::test {

// A settings key of the current user that nobody else uses and that is deleted at the end. It is not there
// until something is stored.
class ScratchKey {
  public:
    ScratchKey();
    ~ScratchKey();
    ScratchKey(const ScratchKey&) = delete;
    ScratchKey& operator=(const ScratchKey&) = delete;

    // What a host passes as the sub-key.
    const std::wstring& SubKey() const { return m_subKey; }

    bool Exists() const;
    void Create() const;

    void SetNumber(const char* name, std::int32_t value) const;
    void SetText(const char* name, const std::wstring& value) const;

    // Empty when there is no such value, or one of another type.
    std::optional<std::int32_t> Number(const char* name) const;
    std::optional<std::wstring> Text(const char* name) const;
    // How many values the key holds; none when it is not there.
    int Count() const;

  private:
    std::wstring m_subKey;
    std::wstring m_path;  // below HKEY_CURRENT_USER
};

}  // namespace vmk::test
