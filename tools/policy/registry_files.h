#pragma once

#include <string>
#include <vector>

#include "tools/policy/policy_key.h"
#include "tools/policy/settings_list.h"

// Files that bring values into a registry, each in the form of somebody who reads it.

namespace vmk::policy {

// For Group Policy Preferences: one item for each value, by groups. The values stand in the order of storing.
std::string PreferenceItems(const PolicyKey& key, const std::vector<Assignment>& values);

// For the registry editor, below a key such as HKEY_CURRENT_USER. UTF-16 with a byte-order mark.
std::string RegistryFile(const std::string& below, const PolicyKey& key,
                         const std::vector<Assignment>& values);

// A file of commands for Windows that puts new-user.reg beside it into the hive from which Windows makes
// those of new users; and the key under which that hive is open meanwhile, which is what that file is for.
std::string NewUserCommands();
std::string NewUserHive();

}  // namespace vmk::policy
