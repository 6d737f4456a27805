#include "host/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

namespace vmk {
namespace {

using testing::HasSubstr;

CommandLine Parsed(const std::vector<std::wstring>& arguments) {
    const auto result = ParseCommandLine(arguments);
    if (const auto* answer = std::get_if<CommandLineAnswer>(&result)) {
        ADD_FAILURE() << answer->text;
        return {};
    }
    return std::get<CommandLine>(result);
}

CommandLineAnswer Answer(const std::vector<std::wstring>& arguments) {
    const auto result = ParseCommandLine(arguments);
    if (const auto* answer = std::get_if<CommandLineAnswer>(&result)) return *answer;
    ADD_FAILURE() << "the command line was accepted";
    return {};
}

// A refusal is one line that starts with the program's name.
std::string Refusal(const std::vector<std::wstring>& arguments) {
    const CommandLineAnswer answer = Answer(arguments);
    EXPECT_EQ(answer.status, 2);
    EXPECT_EQ(answer.text.find("vmkprefs: "), 0U) << answer.text;
    EXPECT_EQ(answer.text.find('\n'), answer.text.size() - 1) << answer.text;
    return answer.text;
}

TEST(CommandLineOfEdit, WithoutOptionsMeansAllPagesOfTheRootKeyInTheUsersLanguage) {
    const CommandLine line = Parsed({L"edit"});
    EXPECT_EQ(line.action, Action::Edit);
    EXPECT_EQ(line.pages, 0xFFFFFFFFU);
    EXPECT_EQ(line.key, L"");
    EXPECT_EQ(line.language, 0);
    EXPECT_EQ(line.title, L"");
    EXPECT_FALSE(line.registered);
}

TEST(CommandLineOfEdit, TakesEveryOption) {
    const CommandLine line = Parsed({L"--registered", L"edit", L"--key", L"Office\\Second", L"--pages",
                                     L"Fonts,DigitalSign", L"--language", L"0407", L"--title", L"Größe"});
    EXPECT_TRUE(line.registered);
    EXPECT_EQ(line.key, L"Office\\Second");
    EXPECT_EQ(line.pages, 0x10020U);
    EXPECT_EQ(line.language, 0x407);
    EXPECT_EQ(line.title, L"Größe");
}

TEST(CommandLineOfEdit, TakesTheGlobalOptionBehindTheCommand) {
    EXPECT_TRUE(Parsed({L"edit", L"--registered"}).registered);
}

TEST(CommandLineOfEdit, ReadsLanguagesAsHexadecimalWithAndWithoutPrefix) {
    EXPECT_EQ(Parsed({L"edit", L"--language", L"0x0407"}).language, 0x407);
    EXPECT_EQ(Parsed({L"edit", L"--language", L"0X40c"}).language, 0x40C);
    EXPECT_EQ(Parsed({L"edit", L"--language", L"1031"}).language, 0x1031);
    EXPECT_EQ(Parsed({L"edit", L"--language", L"de"}).language, 0xDE);
}

TEST(CommandLineOfEdit, RefusesLanguagesThatAreNoIdentifiers) {
    for (const wchar_t* text : {L"german", L"10407", L"", L"0x", L"407h", L"-1"}) {
        EXPECT_THAT(Refusal({L"edit", L"--language", text}), HasSubstr("is no language identifier"));
    }
}

TEST(CommandLineOfEdit, KnowsEveryPageInAnyCase) {
    const std::vector<std::pair<std::wstring, PageSet>> pages = {
        {L"PAPER", 0x1},           {L"customforms", 0x2}, {L"general", 0x4},         {L"Compression", 0x8},
        {L"Graphics", 0x10},       {L"Fonts", 0x20},      {L"Watermarks", 0x40},     {L"Security", 0x80},
        {L"Links", 0x100},         {L"Bookmarks", 0x200}, {L"DocumentInfo", 0x400},  {L"Save", 0x800},
        {L"EMAIL", 0x1000},        {L"Profiles", 0x2000}, {L"Optimization", 0x4000}, {L"Overlay", 0x8000},
        {L"digitalsign", 0x10000}, {L"All", 0xFFFFFFFF},  {L"allpages", 0xFFFFFFFF}};
    for (const auto& [name, bits] : pages) EXPECT_EQ(Parsed({L"edit", L"--pages", name}).pages, bits);
}

TEST(CommandLineOfEdit, ListsTheRightNamesWhenAPageIsUnknown) {
    EXPECT_THAT(
        Refusal({L"edit", L"--pages", L"Paper,Font"}),
        HasSubstr("unknown name 'Font'; the names are all, Paper, CustomForms, General, Compression, "
                  "Graphics, Fonts, Watermarks, Security, Links, Bookmarks, DocumentInfo, Save, eMail, "
                  "Profiles, Optimization, Overlay, DigitalSign;"));
}

TEST(CommandLineOfEdit, RefusesAnEmptyPageName) {
    EXPECT_THAT(Refusal({L"edit", L"--pages", L"Paper,,Fonts"}), HasSubstr("unknown name ''"));
    EXPECT_THAT(Refusal({L"edit", L"--pages", L"Paper,"}), HasSubstr("unknown name ''"));
    EXPECT_THAT(Refusal({L"edit", L"--pages", L""}), HasSubstr("unknown name ''"));
}

TEST(CommandLineOfEdit, TakesTitlesAndKeysThatLookLikeWindowsOptions) {
    EXPECT_EQ(Parsed({L"edit", L"--title", L"/key"}).title, L"/key");
    EXPECT_EQ(Parsed({L"edit", L"--key", L"/title"}).key, L"/title");
}

TEST(CommandLineOfEdit, TakesAnEmptyTitleAndAnEmptyKeyAsNone) {
    const CommandLine line = Parsed({L"edit", L"--title", L"", L"--key", L""});
    EXPECT_EQ(line.title, L"");
    EXPECT_EQ(line.key, L"");
}

TEST(CommandLineOfShow, WithoutGroupsAsksForEverything) {
    const CommandLine line = Parsed({L"show"});
    EXPECT_EQ(line.action, Action::Show);
    EXPECT_EQ(line.pages, std::nullopt);
}

TEST(CommandLineOfShow, TakesGroupsAndAKey) {
    const CommandLine line = Parsed({L"show", L"--key", L"Office", L"paper", L"eMail"});
    EXPECT_EQ(line.pages, 0x1001U);
    EXPECT_EQ(line.key, L"Office");
}

TEST(CommandLineOfShow, AddsTextsOnlyWhenAsked) {
    EXPECT_FALSE(Parsed({L"show"}).texts);
    const CommandLine line = Parsed({L"show", L"--texts", L"paper"});
    EXPECT_TRUE(line.texts);
    EXPECT_EQ(line.pages, 0x1U);
    EXPECT_THAT(Refusal({L"reset", L"--texts", L"Paper"}), HasSubstr("--texts"));
}

TEST(CommandLineOfReset, TakesGroups) {
    const CommandLine line = Parsed({L"reset", L"General", L"Save"});
    EXPECT_EQ(line.action, Action::Reset);
    EXPECT_EQ(line.pages, 0x804U);
}

TEST(CommandLineOfReset, RequiresAGroup) {
    EXPECT_THAT(Refusal({L"reset"}), HasSubstr("GROUP is required"));
}

TEST(CommandLineOfReset, RefusesUnknownGroups) {
    EXPECT_THAT(Refusal({L"reset", L"Paper", L"Email2"}), HasSubstr("unknown name 'Email2'"));
}

TEST(CommandLineOfRegistration, HasTwoCommands) {
    EXPECT_EQ(Parsed({L"register"}).action, Action::Register);
    EXPECT_EQ(Parsed({L"unregister"}).action, Action::Unregister);
}

TEST(CommandLineOfRegistration, RefusesTheRegisteredComponent) {
    EXPECT_THAT(Refusal({L"register", L"--registered"}), HasSubstr("--registered has no meaning here"));
}

TEST(CommandLine, RefusesKeysThatTheRegistryCannotHave) {
    for (const wchar_t* key : {L"\\Office", L"Office\\", L"Office\\\\Second", L"\\"}) {
        EXPECT_THAT(Refusal({L"show", L"--key", key}), HasSubstr("is no sub-key"));
    }
}

TEST(CommandLine, RequiresOneKnownCommand) {
    EXPECT_THAT(Refusal({}), HasSubstr("give one of the commands"));
    EXPECT_THAT(Refusal({L"erase"}), HasSubstr("give one of the commands"));
    EXPECT_THAT(Refusal({L"edit", L"show"}), HasSubstr("show"));
}

TEST(CommandLine, RefusesUnknownOptionsAndExtraArguments) {
    EXPECT_THAT(Refusal({L"edit", L"--colour"}), HasSubstr("--colour"));
    EXPECT_THAT(Refusal({L"register", L"now"}), HasSubstr("now"));
    EXPECT_THAT(Refusal({L"show", L"--title", L"x"}), HasSubstr("--title"));
}

TEST(CommandLine, RefusesAnOptionWithoutItsValue) {
    EXPECT_THAT(Refusal({L"edit", L"--key"}), HasSubstr("--key"));
}

TEST(CommandLineHelp, NamesTheCommands) {
    const CommandLineAnswer answer = Answer({L"--help"});
    EXPECT_EQ(answer.status, 0);
    for (const char* command : {"edit", "show", "reset", "register", "unregister", "--registered"}) {
        EXPECT_THAT(answer.text, HasSubstr(command));
    }
}

TEST(CommandLineHelp, OfACommandNamesItsOptionsAndThePages) {
    const std::string help = Answer({L"edit", L"--help"}).text;
    for (const char* word :
         {"--key", "--pages", "--language", "hexadecimal", "--title", "DigitalSign", "--registered"}) {
        EXPECT_THAT(help, HasSubstr(word));
    }
    EXPECT_THAT(Answer({L"show", L"--help"}).text, HasSubstr("--texts"));
    EXPECT_THAT(Answer({L"reset", L"--help"}).text, HasSubstr("GROUP"));
    EXPECT_THAT(Answer({L"reset", L"--help"}).text, HasSubstr("--registered"));
    EXPECT_EQ(Answer({L"unregister", L"--help"}).status, 0);
}

}  // namespace
}  // namespace vmk
