#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "settings/page_set.h"

namespace vmk {

enum class Action { Edit, Show, Reset, Register, Unregister };

// What the user asked for, checked. Members that the action has no use for keep their defaults.
struct CommandLine {
    Action action = Action::Edit;
    bool registered = false;       // use the registered component, not the one beside the program
    std::wstring key;              // sub-key of the settings; empty: the root key itself
    std::optional<PageSet> pages;  // edit: pages to list; show, reset: groups; nothing given: empty
    bool texts = false;            // show: add what numbers mean
    LANGID language = 0;           // edit: 0 is the user's default language
    std::wstring title;            // edit: caption of the dialog; empty: its own
};

// The answer to a command line that asks for nothing but a text: help (status 0) or the one line that says
// what is wrong with it (status 2).
struct CommandLineAnswer {
    int status = 0;
    std::string text;  // UTF-8
};

// Reads the arguments that follow the program's name.
std::variant<CommandLine, CommandLineAnswer> ParseCommandLine(const std::vector<std::wstring>& arguments);

}  // namespace vmk
