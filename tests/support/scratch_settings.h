#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "settings/printer_settings.h"

namespace vmk::test {

// A settings key of the current user that nobody else uses and that is deleted at the end.
class ScratchSettings {
  public:
    ScratchSettings();
    ~ScratchSettings();
    ScratchSettings(const ScratchSettings&) = delete;
    ScratchSettings& operator=(const ScratchSettings&) = delete;

    // What a host passes as the sub-key.
    const std::wstring& SubKey() const { return m_subKey; }

    void SetNumber(const char* name, std::int32_t value) const;
    void SetText(const char* name, const std::wstring& value) const;
    void Store(const PrinterSettings& settings) const;

    // Empty when there is no such value, or one of another type.
    std::optional<std::int32_t> Number(const char* name) const;
    std::optional<std::wstring> Text(const char* name) const;
    // How many values the key holds.
    int Count() const;
    // The record that the key holds.
    PrinterSettings Load() const;

  private:
    std::wstring m_subKey;
};

}  // namespace vmk::test
