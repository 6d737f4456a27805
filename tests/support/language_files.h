#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/temporary_folder.h"

// A folder of language files:
//
//     const LanguageFiles files;
//     files.WriteText(L"a.vlf", L"$langid = 0407\n$productID = some.Product\n\"OK\" = \"Ja\"");
//     files.WriteTranslations(L"b.vlf", 0x040C, {{L"OK", L"Oui"}});

namespace vmk::test {

// English text and its translation.
using Translations = std::vector<std::pair<std::wstring, std::wstring>>;

class LanguageFiles : public TemporaryFolder {
  public:
    using TemporaryFolder::TemporaryFolder;

    // Writes a file with a byte-order mark.
    void WriteText(const std::wstring& name, std::wstring_view text) const;
    // Writes a file of this component.
    void WriteTranslations(const std::wstring& name, std::uint32_t langid, const Translations& entries) const;
};

}  // namespace vmk::test
