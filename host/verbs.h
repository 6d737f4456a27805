#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

#include "host/command_line.h"

namespace vmk {

// The texts as they were typed, in UTF-8.
struct Typed {
    std::string key;
    std::string pages = "all";
    std::string language = "0";
    std::string title;
    std::string list;
    std::string folder;
    std::string html;
    std::vector<std::string> groups;
    std::vector<std::string> operands;
    bool registered = false;
    bool version = false;
    bool texts = false;
    bool json = false;
    bool bare = false;
    bool reg = false;
    bool withPasswords = false;
    bool force = false;
    bool dryRun = false;
};

// A command and what may follow it.
struct Verb {
    Action action;
    const char* name;
    const char* help;
    void (*declare)(CLI::App& command, Typed& typed);
};

// The grammar of the whole command line. What is parsed goes to `typed`, which has to outlive the app.
void DeclareGrammar(CLI::App& app, Typed& typed);

// The verb that was parsed; null when there is none.
const Verb* ParsedVerb(const CLI::App& app);

// "edit, show, get, ...".
std::string ListOfVerbs();

}  // namespace vmk
