#pragma once

#include <windows.h>

#include <map>
#include <string>

// What the tests read in the registry.

namespace vmk::test {

// Everything below a key: "path" for each key itself and "path|value name" for each of its values. Texts as
// they are, numbers in decimal. Empty when the key is missing.
using RegistryContent = std::map<std::wstring, std::wstring>;
RegistryContent ReadTree(HKEY root, const std::wstring& path);

// The entries that registration makes or removes, from HKEY_CLASSES_ROOT.
RegistryContent ReadRegistration();

// Removes those entries, whoever made them.
void WipeRegistration();

}  // namespace vmk::test
