#include "tools/policy/translation.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <span>

#include "language/language_file.h"
#include "tools/policy/text.h"

namespace vmk::policy {
namespace {

std::string ForALine(std::wstring_view text) {
    std::wstring line;
    for (const wchar_t c : text)
        if (c != L'&') line += c;
    const std::size_t last = line.find_last_not_of(L" :");
    return Utf8(std::wstring_view(line).substr(0, last + 1));
}

}  // namespace

std::string English::Of(std::wstring_view english) const {
    return ForALine(english);
}

FromLanguageFiles::FromLanguageFiles(const std::vector<std::string>& files) {
    for (const std::string& path : files) {
        std::ifstream stream(path, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        const auto file = ReadLanguageFile(std::as_bytes(std::span(bytes)));
        if (!file) throw Refusal(path + " is no language file");
        auto& texts = m_files.emplace_back();
        for (const LanguageEntry& entry : file->entries) texts.emplace(entry.source, entry.translation);
    }
}

std::string FromLanguageFiles::Of(std::wstring_view english) const {
    m_asked.emplace(english);
    for (const auto& texts : m_files)
        if (const auto found = texts.find(english); found != texts.end()) return ForALine(found->second);
    throw Refusal("no translation of \"" + Utf8(english) + "\"");
}

std::vector<std::wstring> FromLanguageFiles::Unused(std::size_t file) const {
    std::vector<std::wstring> unused;
    for (const auto& [english, translation] : m_files.at(file))
        if (!m_asked.contains(english)) unused.push_back(english);
    return unused;
}

std::vector<std::wstring> FromLanguageFiles::Repeated(std::size_t file) const {
    std::vector<std::wstring> repeated;
    for (const auto& entry : m_files.at(file)) {
        const auto has = [&](const auto& texts) { return texts.contains(entry.first); };
        if (std::any_of(m_files.begin(), m_files.begin() + static_cast<std::ptrdiff_t>(file), has))
            repeated.push_back(entry.first);
    }
    return repeated;
}

}  // namespace vmk::policy
