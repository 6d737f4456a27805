#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace vmk::test {

// A settings sub-key of its own for one test, removed at its end. It does not exist until something is
// stored.
class ScratchKey {
  public:
    ScratchKey();
    ~ScratchKey();
    ScratchKey(const ScratchKey&) = delete;
    ScratchKey& operator=(const ScratchKey&) = delete;

    // The sub-key below the settings' root, as hosts name it.
    const std::wstring& Name() const { return m_name; }

    bool Exists() const;
    void Create() const;
    void SetNumber(const wchar_t* value, DWORD number) const;
    void SetText(const wchar_t* value, const std::wstring& text) const;
    std::optional<DWORD> Number(const wchar_t* value) const;

  private:
    std::wstring m_name;
    std::wstring m_path;
};

}  // namespace vmk::test
