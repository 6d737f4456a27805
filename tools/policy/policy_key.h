#pragma once

#include <string>
#include <string_view>

namespace vmk::policy {

// The key that the files are for, and what follows from its name.
class PolicyKey {
  public:
    // An empty sub-key is the root key of the settings. Throws Refusal for a name that no key has.
    explicit PolicyKey(std::string subKey);

    const std::string& SubKey() const { return m_subKey; }
    // From SOFTWARE on, without a backslash at its end.
    std::string Path() const;
    // What the names of files and of policies begin with: letters, digits and "_", another one for another
    // key.
    std::string Identifier() const;

  private:
    std::string m_subKey;
};

// The same for the same text, another for another one.
std::string StableGuid(std::string_view text);

}  // namespace vmk::policy
