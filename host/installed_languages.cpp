#include "host/installed_languages.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <span>

#include "host/failure.h"
#include "host/files.h"
#include "host/resource_ids.h"
#include "host/resources.h"
#include "host/text.h"
#include "language/language_file.h"
#include "language/language_table.h"
#include "settings/language_folder.h"

namespace vmk {
namespace {

std::optional<LanguageFile> Parse(std::string_view bytes) {
    return ReadLanguageFile(std::as_bytes(std::span(bytes)));
}

// Every text that the dialog shows, as a language file that translates them all.
std::vector<std::wstring> TextsOfDialog() {
    const auto catalogue = Parse(Resource(IDR_CATALOGUE));
    if (!catalogue) return {};
    std::vector<std::wstring> texts;
    for (const LanguageEntry& entry : catalogue->entries) texts.emplace_back(entry.source);
    return texts;
}

std::string Hexadecimal(std::uint32_t id) {
    std::array<char, 12> digits{};
    std::snprintf(digits.data(), digits.size(), "%04x", static_cast<unsigned>(id));
    return digits.data();
}

void AddHeaderFaults(const LanguageHeader& header, InstalledLanguage& language) {
    if (header.langid == kNoLangid)
        language.faults.emplace_back("it names no langid, so that nobody finds it");
    const std::string product = Utf8FromWide(header.productID);
    if (!EqualsIgnoringCase(product, Utf8FromWide(kLanguageProduct))) {
        language.faults.push_back("it is for the product '" + product + "', not for " +
                                  Utf8FromWide(kLanguageProduct));
    }
}

void AddDoubled(const LanguageFile& file, InstalledLanguage& language) {
    std::map<std::wstring_view, int> counts;
    for (const LanguageEntry& entry : file.entries) ++counts[entry.source];
    for (const auto& [source, count] : counts) {
        if (count > 1) {
            language.faults.push_back("'" + Utf8FromWide(source) + "' stands there " + std::to_string(count) +
                                      " times");
        }
    }
}

InstalledLanguage Inspect(const std::wstring& path, const std::vector<std::wstring>& texts) {
    InstalledLanguage language{.file = path, .id = {}, .name = {}, .texts = texts.size(), .faults = {}};
    if (WideFromAnsi(AnsiFromWide(path)) != path) {
        language.faults.emplace_back("its path is not one of the ANSI code page, so that nobody finds it");
    }
    std::optional<LanguageFile> file = Parse(ReadFileBytes(path));
    if (!file) {
        language.faults.emplace_back("it does not begin with the byte-order mark FF FE of UTF-16");
        return language;
    }
    if (file->header.langid != kNoLangid) language.id = Hexadecimal(file->header.langid);
    language.name = file->header.langname;
    AddHeaderFaults(file->header, language);
    AddDoubled(*file, language);
    const LanguageTable table(*std::move(file));
    language.translated = static_cast<std::size_t>(
        std::ranges::count_if(texts, [&](const std::wstring& text) { return table.Find(text).has_value(); }));
    return language;
}

}  // namespace

std::vector<InstalledLanguage> InstalledLanguages(const std::wstring& folder) {
    std::wstring where = folder.empty() ? WideFromAnsi(LanguageFolder()) : folder;
    if (where.empty()) {
        throw Failure("no folder of language files is configured (VLF_PATH); give one with --folder");
    }
    if (!where.ends_with(L'\\') && !where.ends_with(L'/')) where += L'\\';
    const std::vector<std::wstring> texts = TextsOfDialog();
    std::vector<InstalledLanguage> languages;
    for (const std::wstring& name : FilesIn(where, L"*.vlf")) {
        InstalledLanguage language = Inspect(where + name, texts);
        const auto same = std::ranges::find(languages, language.id, &InstalledLanguage::id);
        if (!language.id.empty() && same != languages.end()) {
            language.faults.push_back("it has the same langid as " + Utf8FromWide(same->file));
        }
        languages.push_back(std::move(language));
    }
    return languages;
}

}  // namespace vmk
