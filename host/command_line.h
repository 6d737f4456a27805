#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "settings/page_set.h"

namespace vmk {

enum class Action {
    Edit,
    Show,
    Get,
    Set,
    Reset,
    Defaults,
    Keys,
    Copy,
    Diff,
    Validate,
    Export,
    Import,
    Report,
    Presets,
    Languages,
    Completion,
    Register,
    Unregister,
    Version,
};

// What the user asked for, checked. Members that the action has no use for keep their defaults.
struct CommandLine {
    Action action = Action::Edit;
    bool registered = false;       // use the registered component, not the one beside the program
    std::wstring key;              // sub-key of the settings; empty: the root key itself
    std::optional<PageSet> pages;  // edit: pages to list; show, reset: groups; nothing given: empty
    bool texts = false;            // show: add what numbers mean
    LANGID language = 0;           // edit, report: 0 is the user's default language
    std::wstring title;            // edit: caption of the dialog; empty: its own

    // get: names; set: assignments; copy, report: sub-keys; diff, validate: sub-keys or files; export,
    // import: the file.
    std::vector<std::wstring> operands;
    std::wstring list;           // import: the file that lists the keys
    std::wstring folder;         // languages: where to look; empty: the configured folder
    std::wstring html;           // report: the file
    bool json = false;           // print JSON
    bool bare = false;           // get: values alone
    bool reg = false;            // export: the form of the registry editor
    bool withPasswords = false;  // get, diff, export
    bool force = false;          // set, import: numbers that a setting may not have
    bool dryRun = false;         // import: show what would change
};

// The answer to a command line that asks for nothing but a text: help (status 0) or the one line that says
// what is wrong with it (status 2).
struct CommandLineAnswer {
    int status = 0;
    std::string text;  // UTF-8
};

// Reads the arguments that follow the program's name.
std::variant<CommandLine, CommandLineAnswer> ParseCommandLine(const std::vector<std::wstring>& arguments);

// The sub-key of a name as people write it: "." is the root key. Nothing when the registry cannot have such a
// key.
std::optional<std::wstring> SubKeyOf(const std::string& text);

}  // namespace vmk
