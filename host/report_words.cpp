#include "host/report_words.h"

#include <array>
#include <cstdio>

#include "host/failure.h"
#include "host/text.h"
#include "settings/language_folder.h"

namespace vmk {
namespace {

std::string TagOf(LANGID language) {
    std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> name{};
    const int size =
        LCIDToLocaleName(MAKELCID(language, SORT_DEFAULT), name.data(), static_cast<int>(name.size()), 0);
    return size > 1 ? Utf8FromWide(name.data()) : "en";
}

}  // namespace

ReportWords::ReportWords(LANGID language, const std::wstring& folder) {
    const LANGID wanted = language != 0 ? language : GetUserDefaultLangID();
    auto session = std::make_unique<LanguageSession>(folder.empty() ? LanguageFolder() : AnsiFromWide(folder),
                                                     kLanguageProduct);
    if (session->SelectLanguage(wanted)) {
        m_session = std::move(session);
        m_tag = TagOf(wanted);
    } else if (language != 0 && PRIMARYLANGID(language) != LANG_ENGLISH) {
        std::array<char, 8> digits{};
        std::snprintf(digits.data(), digits.size(), "%04x", static_cast<unsigned>(language));
        throw Failure(std::string("there is no language file for ") + digits.data() +
                      "; vmkprefs languages lists those there are");
    }
}

}  // namespace vmk
