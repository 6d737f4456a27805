#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace vmk {

class LanguageSession;

/// Translates texts, windows and menus through the language files of one folder; releases them when it dies.
/// Every operation does nothing before a session is opened.
class Translator {
  public:
    Translator();
    Translator(const Translator&) = delete;
    Translator& operator=(const Translator&) = delete;
    ~Translator();

    /// Opens the "*.vlf" files of the folder (ANSI path; may end with a backslash) that belong to the
    /// product, in place of the session before. No language is selected yet. False, and no session, only when
    /// memory runs out: a folder without usable files opens a session that translates nothing.
    bool OpenLanguageSession(const std::string& folder, std::wstring_view product);

    /// Selects the language with exactly this Windows language identifier. False when there is none; the
    /// language selected before then stays.
    bool SelectLanguage(std::uint32_t langid);

    /// Whether a language is selected.
    bool HasLanguage() const;

    /// The translation of exactly this text, or else the text itself.
    std::wstring TranslateString(std::wstring_view text) const;

    /// Replaces the window's text by its translation, after its children's when these are wanted. Password
    /// edits are neither read nor changed; other texts are set again even when they have no translation.
    void TranslateWindow(HWND window, bool withChildren) const;

    /// Replaces the texts of the menu's items, submenus included. The items stay as they are in all other
    /// respects.
    void TranslateMenu(HMENU menu) const;

  private:
    std::unique_ptr<LanguageSession> m_session;
};

}  // namespace vmk
