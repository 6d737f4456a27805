#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>
#include <vector>

#include "host/files.h"
#include "host/text.h"
#include "tests/host/program.h"

// What is written about vmkprefs, held against what the program says itself.

namespace vmk::test {
namespace {

using testing::ElementsAreArray;

struct Command {
    std::string name;
    std::string help;
};

std::string Document(const char* path) {
    return ReadFileBytes(WideFromUtf8(path));
}

std::vector<Command> MatchesOf(const std::string& text, const std::regex& row) {
    std::vector<Command> found;
    for (std::sregex_iterator each(text.begin(), text.end(), row), end; each != end; ++each) {
        found.push_back({(*each)[1].str(), (*each)[2].str()});
    }
    return found;
}

std::vector<Command> CommandsOfHelp() {
    const std::string help = RunVmkprefs(L"--help").output;
    return MatchesOf(help.substr(help.find("Subcommands:")), std::regex(R"(  ([a-z]+) +([A-Z][^\r\n]*))"));
}

std::vector<std::string> Lines(const std::vector<Command>& commands) {
    std::vector<std::string> lines;
    for (const Command& command : commands) lines.push_back(command.name + ": " + command.help);
    return lines;
}

std::set<std::string> OptionsIn(const std::string& text) {
    std::set<std::string> options;
    const std::regex option("--[a-z][a-z-]*");
    for (std::sregex_iterator each(text.begin(), text.end(), option), end; each != end; ++each) {
        options.insert(each->str());
    }
    return options;
}

// The part of a document under a heading of the second level.
std::string Section(const std::string& document, const std::string& heading) {
    const std::size_t start = document.find("\n## " + heading + "\n");
    if (start == std::string::npos) return "";
    return document.substr(start + 1, document.find("\n## ", start + 1) - start - 1);
}

TEST(ReadmeOfVmkprefs, ListsEveryCommandOnceInTheWordsOfItsHelp) {
    const std::string readme = Section(Document(VMK_README), "On the command line");
    const auto rows = MatchesOf(readme, std::regex(R"(\n\| `([a-z]+)` \| ([^|\r\n]*) \|)"));
    EXPECT_GE(rows.size(), 18U);
    EXPECT_THAT(Lines(rows), ElementsAreArray(Lines(CommandsOfHelp())));
}

TEST(DocumentOfVmkprefs, HasASectionOfEveryCommandInItsOrder) {
    const auto headings = MatchesOf(Document(VMK_DOCUMENT), std::regex(R"(\n## ([a-z]+)()\r?\n)"));
    std::vector<std::string> names;
    for (const Command& heading : headings) names.push_back(heading.name);
    std::vector<std::string> wanted;
    for (const Command& command : CommandsOfHelp()) wanted.push_back(command.name);
    EXPECT_THAT(names, ElementsAreArray(wanted));
}

TEST(DocumentOfVmkprefs, NamesEveryOptionOfACommandAndNoOther) {
    const std::string document = Document(VMK_DOCUMENT);
    for (const Command& command : CommandsOfHelp()) {
        std::set<std::string> wanted = OptionsIn(RunVmkprefs(WideFromUtf8(command.name + " --help")).output);
        wanted.erase("--help");
        EXPECT_EQ(OptionsIn(Section(document, command.name)), wanted) << command.name;
    }
}

TEST(DocumentOfVmkprefs, NamesEveryExitStatusOnce) {
    const std::string section = Section(Document(VMK_DOCUMENT), "What all commands share");
    for (const char* const status : {"0", "1", "2"}) {
        const auto rows = MatchesOf(section, std::regex("\n\\| (" + std::string(status) + ")() \\| "));
        EXPECT_EQ(rows.size(), 1U) << status;
    }
}

}  // namespace
}  // namespace vmk::test
