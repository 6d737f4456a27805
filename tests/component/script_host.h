#pragma once

#include <string>

namespace vmk::test {

// Runs a script of this folder's scripts/ in cscript, with arguments, and returns what it printed. The hosts
// tell little by their exit code, so a script prints "done" as its last line.
std::string RunScript(const std::wstring& file, const std::wstring& arguments);

}  // namespace vmk::test
