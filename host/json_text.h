#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "host/catalogue.h"

namespace vmk {

// A text as JSON, in UTF-8. Surrogates without a partner become escapes, which UTF-8 has no form for.
std::string JsonText(std::wstring_view text);
std::string JsonText(std::string_view utf8);

// A number or a text as JSON.
std::string JsonValueOf(const Value& value);

// An object or a list in JSON that grows member by member, each on a line of its own.
class JsonObject {
  public:
    // The value is JSON already.
    void Add(std::string_view name, const std::string& json) { Append(JsonText(name) + ": " + json); }
    std::string Text() const { return m_members.empty() ? "{}" : "{" + m_members + "\n}"; }

  private:
    void Append(const std::string& member) { m_members += (m_members.empty() ? "\n  " : ",\n  ") + member; }
    std::string m_members;
};
class JsonList {
  public:
    void Add(const std::string& json) { m_items += (m_items.empty() ? "\n  " : ",\n  ") + json; }
    std::string Text() const { return m_items.empty() ? "[]" : "[" + m_items + "\n]"; }

  private:
    std::string m_items;
};

// What is wrong with a text in JSON.
class JsonFault : public std::runtime_error {
  public:
    JsonFault(int line, const std::string& reason) : std::runtime_error(reason), m_line(line) {}
    int Line() const { return m_line; }

  private:
    int m_line;
};

// A value as it stands in JSON. Of what is neither text nor number nothing but that is kept.
struct JsonValue {
    enum class Kind { Text, Number, Other };
    Kind kind = Kind::Other;
    std::wstring text;  // of a number: its digits as they stand there
};

// Goes through a text in JSON from its beginning to its end. Keeps the line, and, unlike most, surrogates
// without a partner, which Windows has in names of files and windows. Every function throws JsonFault.
class JsonReader {
  public:
    explicit JsonReader(std::wstring_view text) : m_text(text) {}

    // Calls with each name of an object and its line; what is called reads the value.
    template <typename OnMember>
    void ReadObject(const OnMember& onMember) {
        Expect(L'{', "an object in braces");
        if (Takes(L'}')) return;
        do {
            SkipBlanks();
            const int line = m_line;
            const std::wstring name = ReadText("a name in quotes");
            Expect(L':', "a colon behind the name");
            onMember(name, line);
        } while (Takes(L','));
        Expect(L'}', "a comma or the closing brace");
    }

    JsonValue ReadValue();
    // Nothing but blanks may follow.
    void ReadEnd();

  private:
    void SkipBlanks();
    bool Takes(wchar_t character);
    void Expect(wchar_t character, const char* what);
    std::wstring ReadText(const char* what);
    wchar_t ReadEscape();
    std::wstring ReadNumber();
    void SkipArray();
    void SkipWord();
    [[noreturn]] void Refuse(const std::string& reason) const;

    std::wstring_view m_text;
    std::size_t m_at = 0;
    int m_line = 1;
    int m_depth = 0;
};

}  // namespace vmk
