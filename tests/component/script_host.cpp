#include "tests/component/script_host.h"

#include <algorithm>

#include "tests/support/command.h"

namespace vmk::test {
namespace {

// The host takes a path that begins with a slash for an option.
std::wstring ScriptFolder() {
    const std::string folder = VMK_TEST_SCRIPTS;
    std::wstring path = L"Z:" + std::wstring(folder.begin(), folder.end());
    std::ranges::replace(path, L'/', L'\\');
    return path;
}

}  // namespace

std::string RunScript(const std::wstring& file, const std::wstring& arguments) {
    return OutputOf(L"cscript //nologo \"" + ScriptFolder() + L"\\" + file + L"\" " + arguments);
}

}  // namespace vmk::test
