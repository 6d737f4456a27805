#include <windows.h>

#include <gtest/gtest.h>
#include <oleauto.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/com_pointer.h"
#include "tests/hosts/paths.h"
#include "tests/support/loaded_module.h"

// Every call of the component in every example, those included that no machine here can run, is one of the
// type library.

namespace vmk::test {
namespace {

struct Method {
    int id = 0;
    int arguments = 0;
};

std::string Narrow(BSTR text) {
    std::wstring wide(text, SysStringLen(text));
    SysFreeString(text);
    return {wide.begin(), wide.end()};
}

ComPointer<ITypeLib> Library() {
    ComPointer<ITypeLib> library;
    EXPECT_EQ(LoadTypeLibEx(BuiltModulePath().c_str(), REGKIND_NONE, library.put()), S_OK);
    return library;
}

ComPointer<ITypeInfo> TypeNamed(ITypeLib& library, const wchar_t* wanted) {
    ComPointer<ITypeInfo> info;
    std::wstring name = wanted;
    MEMBERID member = 0;
    USHORT count = 1;
    EXPECT_EQ(library.FindName(name.data(), 0, info.put(), &member, &count), S_OK);
    return info;
}

std::map<std::string, Method> MethodsOf(ITypeInfo& interfaceInfo) {
    std::map<std::string, Method> methods;
    for (UINT index = 0;; ++index) {
        FUNCDESC* function = nullptr;
        if (FAILED(interfaceInfo.GetFuncDesc(index, &function))) return methods;
        BSTR name = nullptr;
        UINT count = 0;
        interfaceInfo.GetNames(function->memid, &name, 1, &count);
        methods[Narrow(name)] = {.id = function->memid, .arguments = function->cParams};
        interfaceInfo.ReleaseFuncDesc(function);
    }
}

std::string Contents(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

struct Call {
    std::string method;
    int arguments;
};

// How many arguments the text begins with: in parentheses, or as VBScript has them, up to the end of the
// line.
int ArgumentsAt(std::string_view text) {
    const bool isInParentheses = text.starts_with('(');
    if (isInParentheses) text.remove_prefix(1);
    int depth = 0;
    int arguments = 0;
    for (const char c : text) {
        if (c == '\n' || (c == ')' && isInParentheses && depth == 0)) break;
        if (c == '(') ++depth;
        if (c == ')') --depth;
        if (c == ',' && depth == 0) ++arguments;
        if (c != ' ' && c != '\r' && arguments == 0) arguments = 1;
    }
    return arguments;
}

std::vector<Call> CallsIn(std::string_view text) {
    std::vector<Call> calls;
    constexpr std::string_view kObject = "preferences";
    for (auto at = text.find(kObject); at != std::string_view::npos; at = text.find(kObject)) {
        text.remove_prefix(at + kObject.size());
        const auto name = text.find_first_not_of(".->");
        // Not a name that only ends with this one, and not the name of the library.
        if (name == 0 || name == std::string_view::npos ||
            !std::isupper(static_cast<unsigned char>(text[name])))
            continue;
        text.remove_prefix(name);
        const auto isLetter = [](unsigned char c) { return std::isalpha(c) != 0; };
        const auto end = static_cast<std::size_t>(std::ranges::find_if_not(text, isLetter) - text.begin());
        calls.push_back(
            {.method = std::string(text.substr(0, end)), .arguments = ArgumentsAt(text.substr(end))});
    }
    return calls;
}

// Answers how many hosts there are in the folder and below.
int ExpectCallsOfTheTypeLibrary(const std::filesystem::path& folder,
                                const std::vector<std::string>& wholeRound) {
    const ComPointer<ITypeLib> library = Library();
    const auto methods = MethodsOf(*TypeNamed(*library, L"IPdfPrinterPreferences"));
    EXPECT_TRUE(methods.contains("OpenDialog"));
    int files = 0;
    for (const auto& item : std::filesystem::recursive_directory_iterator(folder)) {
        if (item.path().stem() != "edit" && item.path().stem() != "Edit") continue;
        if (item.path().extension() == ".exe" || item.path().extension() == ".o") continue;
        SCOPED_TRACE(item.path().string());
        std::map<std::string, int> seen;
        for (const Call& call : CallsIn(Contents(item.path()))) {
            ++seen[call.method];
            if (call.method == "Release") continue;
            const auto method = methods.find(call.method);
            if (method == methods.end()) {
                ADD_FAILURE() << call.method;
                continue;
            }
            EXPECT_EQ(call.arguments, method->second.arguments) << call.method;
        }
        for (const std::string& needed : wholeRound) EXPECT_EQ(seen[needed], 1) << needed;
        ++files;
    }
    return files;
}

TEST(CallsOfTheExamples, AreMethodsOfTheTypeLibraryWithAsManyArguments) {
    const ComApartment apartment;
    EXPECT_EQ(ExpectCallsOfTheTypeLibrary(ExamplePath(L""), {"InitFromRegistry", "EnablePage", "SetTitle",
                                                             "OpenDialog", "StoreInRegistry"}),
              8);
}

TEST(CallsOfTheSamples, AreMethodsOfTheTypeLibraryWithAsManyArguments) {
    const ComApartment apartment;
    EXPECT_EQ(ExpectCallsOfTheTypeLibrary(
                  BuiltPath(L"samples"), {"InitFromRegistry", "EnablePage", "OpenDialog", "StoreInRegistry"}),
              7);
}

TEST(CallsOfTheExamples, ACallThatTheTypeLibraryDoesNotHaveIsSeen) {
    const std::vector<Call> calls =
        CallsIn("preferences.InitFromRegistry(f(1, 2))\npreferences.EnablePages 1, 2\n");
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[0].arguments, 1);
    EXPECT_EQ(calls[1].method, "EnablePages");
    EXPECT_EQ(calls[1].arguments, 2);
}

}  // namespace
}  // namespace vmk::test
