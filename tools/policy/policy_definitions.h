#pragma once

#include <string>
#include <string_view>

#include "tools/policy/policy_key.h"
#include "tools/policy/translation.h"

namespace vmk::policy {

// The policies as the editor of Group Policy reads them: a language-neutral file (ADMX), and one with the
// texts of each language (ADML).
std::string PolicyDefinitions(const PolicyKey& key);
std::string PolicyTexts(const PolicyKey& key, const Translation& translation);

}  // namespace vmk::policy
