#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vmk {

// A language file as it was found.
struct InstalledLanguage {
    std::wstring file;  // its path
    std::string id;     // four hexadecimal digits, as --language takes them; empty when it has none
    std::wstring name;
    std::size_t translated = 0;  // how many of the dialog's texts it translates
    std::size_t texts = 0;       // how many there are
    std::vector<std::string> faults;
};

// The files of a folder, or of the configured one when it is empty. Throws Failure when there is no such
// folder.
std::vector<InstalledLanguage> InstalledLanguages(const std::wstring& folder);

}  // namespace vmk
