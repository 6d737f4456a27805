#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vmk::policy {

// What the policies say in one language.
class Translation {
  public:
    virtual ~Translation() = default;
    // The text in that language, in UTF-8, as it stands on a line of its own: without the mark of an access
    // key, and without the blanks and the colon that stand behind it in a dialog.
    virtual std::string Of(std::wstring_view english) const = 0;
    std::string Of(std::string_view english) const {
        return Of(std::wstring(english.begin(), english.end()));
    }
};

class English final : public Translation {
  public:
    using Translation::Of;
    std::string Of(std::wstring_view english) const override;
};

// A language whose texts are in language files, of which none has to be complete. Throws Refusal when a file
// cannot be read or a text is asked for that is in none of them.
class FromLanguageFiles final : public Translation {
  public:
    explicit FromLanguageFiles(const std::vector<std::string>& files);

    using Translation::Of;
    std::string Of(std::wstring_view english) const override;

    // The texts of a file, by its place in the list, that nobody has asked for; and those that a file before
    // it has, too.
    std::vector<std::wstring> Unused(std::size_t file) const;
    std::vector<std::wstring> Repeated(std::size_t file) const;

  private:
    std::vector<std::map<std::wstring, std::wstring, std::less<>>> m_files;
    mutable std::set<std::wstring, std::less<>> m_asked;
};

}  // namespace vmk::policy
