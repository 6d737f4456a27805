#include <windows.h>

#include <gtest/gtest.h>
#include <oleauto.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "tests/support/loaded_module.h"

// What programmers of hosts read beside the DLL: the interface definition, and what its comments have become
// in the header and in the type library.

namespace vmk::test {
namespace {

std::vector<std::string> LinesOf(const wchar_t* extension) {
    std::ifstream file(std::filesystem::path(BuiltModulePath()).replace_extension(extension));
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

std::string TextOf(const wchar_t* extension) {
    std::string text;
    for (const std::string& line : LinesOf(extension)) text += line + "\n";
    return text;
}

// What the definition says of each value of the enumeration.
std::map<std::string, std::string> ValuesOfTheDefinition() {
    const std::regex value(R"( +(\w+) = [-0-9A-Fx]+,? +// (.+))");
    std::map<std::string, std::string> values;
    for (const std::string& line : LinesOf(L".idl")) {
        std::smatch found;
        if (std::regex_match(line, found, value)) values[found[1]] = found[2];
    }
    return values;
}

TEST(InterfaceDefinition, SaysWhatEveryParameterIs) {
    const std::regex method(R"( +HRESULT (\w+)\((.*)\);)");
    const std::regex parameter(R"(\[\w+\] [\w*]+ (\w+))");
    std::string above;
    int parameters = 0;
    for (const std::string& line : LinesOf(L".idl")) {
        std::smatch found;
        if (line.empty()) above.clear();
        if (std::regex_match(line, found, method)) {
            const std::string list = found[2];
            for (std::sregex_iterator each(list.begin(), list.end(), parameter), end; each != end; ++each) {
                ++parameters;
                EXPECT_NE(above.find("//   " + each->str(1) + "  "), above.npos)
                    << found[1] << ": " << each->str(1);
            }
        }
        above += line + "\n";
    }
    EXPECT_EQ(parameters, 10);
}

TEST(Header, SaysWhatTheDefinitionSays) {
    const std::string header = TextOf(L".h");
    const std::regex comment(R"( +// ?(.*))");
    bool isInLibrary = false;
    int lines = 0;
    for (const std::string& line : LinesOf(L".idl")) {
        std::smatch found;
        isInLibrary |= line.starts_with("library");
        if (!isInLibrary || !std::regex_match(line, found, comment)) continue;
        ++lines;
        EXPECT_TRUE(header.find("* " + found.str(1)) != header.npos || found.str(1).empty()) << found.str(1);
    }
    EXPECT_GT(lines, 30);
    for (const auto& [name, help] : ValuesOfTheDefinition()) {
        const std::regex line(" +" + name + " = [^,]+,? /\\* " + help + " \\*/");
        EXPECT_TRUE(std::regex_search(header, line)) << name;
    }
}

TEST(TypeLibraryFile, SaysOfEveryPageWhatTheDefinitionSays) {
    const ComApartment apartment;
    for (const wchar_t* const extension : {L".tlb", L".dll"}) {
        ComPointer<ITypeLib> library;
        const auto path = std::filesystem::path(BuiltModulePath()).replace_extension(extension);
        ASSERT_EQ(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.put()), S_OK);
        ComPointer<ITypeInfo> pages;
        USHORT found = 1;
        MEMBERID member = MEMBERID_NIL;
        std::wstring name = L"PdfPrinterDialogPage";
        ASSERT_EQ(library->FindName(name.data(), 0, pages.put(), &member, &found), S_OK);
        std::map<std::string, std::string> values;
        VARDESC* value = nullptr;
        for (UINT index = 0; SUCCEEDED(pages->GetVarDesc(index, &value)); ++index) {
            BSTR text = nullptr;
            BSTR help = nullptr;
            EXPECT_EQ(pages->GetDocumentation(value->memid, &text, &help, nullptr, nullptr), S_OK);
            pages->ReleaseVarDesc(value);
            ASSERT_TRUE(text && help) << index;
            values[std::filesystem::path(text).string()] = std::filesystem::path(help).string();
            SysFreeString(text);
            SysFreeString(help);
        }
        EXPECT_EQ(values, ValuesOfTheDefinition());
        EXPECT_EQ(values.size(), 18U);
    }
}

}  // namespace
}  // namespace vmk::test
