#pragma once

#include <algorithm>
#include <string>
#include <string_view>

// Where the examples of hosts are, and what has been compiled of them:
//
//     OutputOf(BuiltPath(L"cpp/edit.exe"));

namespace vmk::test {

inline std::wstring WindowsPath(std::string_view folder, std::wstring_view file) {
    std::wstring path = L"Z:" + std::wstring(folder.begin(), folder.end()) + L"/" + std::wstring(file);
    std::ranges::replace(path, L'/', L'\\');
    return path;
}

inline std::wstring ExamplePath(std::wstring_view file) {
    return WindowsPath(VMK_EXAMPLE_HOSTS, file);
}

inline std::wstring BuiltPath(std::wstring_view file) {
    return WindowsPath(VMK_BUILT_HOSTS, file);
}

}  // namespace vmk::test
