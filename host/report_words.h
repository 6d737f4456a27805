#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

#include "language/language_session.h"

namespace vmk {

// The dialog's words in a language.
class ReportWords {
  public:
    // English.
    ReportWords() = default;
    // A language by its identifier, 0 for the user's, from a folder of language files or, when it is empty,
    // from the configured one. English when the user's language has no file; throws Failure when one that was
    // asked for has none.
    ReportWords(LANGID language, const std::wstring& folder);

    std::wstring_view Translated(std::wstring_view text) const {
        return m_session ? m_session->TranslateString(text) : text;
    }
    // As HTML names languages: "de-DE".
    const std::string& Tag() const { return m_tag; }

  private:
    std::unique_ptr<LanguageSession> m_session;
    std::string m_tag = "en";
};

}  // namespace vmk
