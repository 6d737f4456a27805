#include "host/command_line.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include "host/exit_status.h"
#include "host/pages.h"
#include "host/text.h"

namespace vmk {
namespace {

constexpr const char* kDescription =
    "Edits, shows and resets the printing preferences of the virtual PDF printer.\n"
    "Exit status: 0 done or OK, 1 cancelled, 2 wrong usage or failure.";
constexpr const char* kCommandMissing = "give one of the commands edit, show, reset, register, unregister";
constexpr const char* kRegisteredHelp =
    "Use the registered component instead of the vmkctrl.dll beside this program";
constexpr const char* kKeyHelp = "Sub-key that holds the settings (default: the root key)";
constexpr const char* kLanguageHelp =
    "Windows language identifier, always hexadecimal, with or without 0x: 0407 is German "
    "(default: 0, the user's language)";

class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The texts as they were typed, in UTF-8.
struct Typed {
    bool registered = false;
    bool texts = false;
    std::string key;
    std::string pages = "all";
    std::string language = "0";
    std::string title;
    std::vector<std::string> groups;
};

struct Grammar {
    CLI::App app{kDescription, "vmkprefs"};
    CLI::App* edit = nullptr;
    CLI::App* show = nullptr;
    CLI::App* reset = nullptr;
    CLI::App* enroll = nullptr;
    CLI::App* withdraw = nullptr;
};

CLI::App* AddCommand(CLI::App& app, const char* name, const std::string& help) {
    CLI::App* command = app.add_subcommand(name, help);
    command->fallthrough();  // --registered is understood behind the command as well
    command->footer(app.get_footer());
    return command;
}

void Declare(Grammar& grammar, Typed& typed) {
    CLI::App& app = grammar.app;
    app.footer("The names of pages and groups, in any case: " + ListOfPageNames() + ".");
    // A title or a key may well begin with a slash.
    app.allow_windows_style_options(false);
    app.require_subcommand(1);
    app.add_flag("--registered", typed.registered, kRegisteredHelp);

    grammar.edit = AddCommand(app, "edit", "Opens the dialog and stores the settings on OK.");
    grammar.edit->add_option("--key", typed.key, kKeyHelp)->type_name("SUBKEY");
    grammar.edit->add_option("--pages", typed.pages, "Pages to list, joined by commas (default: all)")
        ->type_name("NAME,...");
    grammar.edit->add_option("--language", typed.language, kLanguageHelp)->type_name("LANGID");
    grammar.edit->add_option("--title", typed.title, "Caption of the dialog")->type_name("TEXT");
    grammar.edit->add_flag("--registered", typed.registered, kRegisteredHelp);

    grammar.show = AddCommand(app, "show", "Prints the stored settings; passwords as asterisks.");
    grammar.show->add_option("--key", typed.key, kKeyHelp)->type_name("SUBKEY");
    grammar.show->add_flag("--texts", typed.texts,
                           "Add what each number means, as in \"1 (Auto)\": the English text that the dialog "
                           "shows for it, or its unit");
    grammar.show->add_option("GROUP", typed.groups, "Groups to print (default: everything)")->type_name("");

    grammar.reset =
        AddCommand(app, "reset", "Sets groups to their default values, as far as the component resets them.");
    grammar.reset->add_option("--key", typed.key, kKeyHelp)->type_name("SUBKEY");
    grammar.reset->add_option("GROUP", typed.groups, "Groups to reset")->type_name("")->required();
    grammar.reset->add_flag("--registered", typed.registered, kRegisteredHelp);

    grammar.enroll = AddCommand(app, "register", "Registers the vmkctrl.dll beside this program.");
    grammar.withdraw = AddCommand(app, "unregister", "Removes that registration.");
}

PageSet PagesOf(const std::vector<std::string>& names) {
    PageSet bits = 0;
    for (const std::string& name : names) {
        const std::optional<PageSet> found = FindPage(name);
        if (!found) throw UsageError("unknown name '" + name + "'; the names are " + ListOfPageNames());
        bits |= *found;
    }
    return bits;
}

std::vector<std::string> SplitAtCommas(const std::string& text) {
    std::vector<std::string> pieces;
    std::size_t start = 0;
    for (std::size_t comma = 0; comma != std::string::npos; start = comma + 1) {
        comma = text.find(',', start);
        pieces.push_back(text.substr(start, comma - start));
    }
    return pieces;
}

LANGID LanguageOf(const std::string& text) {
    std::string_view digits = text;
    if (digits.starts_with("0x") || digits.starts_with("0X")) digits.remove_prefix(2);
    LANGID language = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, language, 16);
    if (error != std::errc() || stop != end) {
        throw UsageError("'" + text + "' is no language identifier; give up to four hexadecimal digits");
    }
    return language;
}

// The registry would refuse such a key, and the component would say nothing about it.
std::wstring KeyOf(const std::string& text) {
    if (text.starts_with('\\') || text.ends_with('\\') || text.find("\\\\") != std::string::npos) {
        throw UsageError("'" + text + "' is no sub-key; every backslash has to stand between two names");
    }
    return WideFromUtf8(text);
}

CommandLine Checked(const Grammar& grammar, const Typed& typed) {
    CommandLine line;
    line.registered = typed.registered;
    line.key = KeyOf(typed.key);
    if (grammar.edit->parsed()) {
        line.action = Action::Edit;
        line.pages = PagesOf(SplitAtCommas(typed.pages));
        line.language = LanguageOf(typed.language);
        line.title = WideFromUtf8(typed.title);
        return line;
    }
    if (grammar.show->parsed() || grammar.reset->parsed()) {
        line.action = grammar.show->parsed() ? Action::Show : Action::Reset;
        line.texts = typed.texts;
        if (!typed.groups.empty()) line.pages = PagesOf(typed.groups);
        return line;
    }
    line.action = grammar.enroll->parsed() ? Action::Register : Action::Unregister;
    if (line.registered) throw UsageError("--registered has no meaning here: it is about this registration");
    return line;
}

CommandLineAnswer WrongUsage(std::string text) {
    std::ranges::replace(text, '\n', ' ');
    return {.status = kExitFailure, .text = "vmkprefs: " + text + "; see vmkprefs --help\n"};
}

}  // namespace

std::variant<CommandLine, CommandLineAnswer> ParseCommandLine(const std::vector<std::wstring>& arguments) {
    std::vector<std::string> reversed(arguments.size());  // the order in which the parser takes them
    std::transform(arguments.rbegin(), arguments.rend(), reversed.begin(), Utf8FromWide);

    Typed typed;
    Grammar grammar;
    Declare(grammar, typed);
    try {
        grammar.app.parse(reversed);
        return Checked(grammar, typed);
    } catch (const CLI::Success& request) {
        std::ostringstream help;
        grammar.app.exit(request, help, help);
        return CommandLineAnswer{.status = kExitDone, .text = help.str()};
    } catch (const CLI::Error& error) {
        if (grammar.app.get_subcommands().empty()) return WrongUsage(kCommandMissing);
        return WrongUsage(error.what());
    } catch (const UsageError& error) {
        return WrongUsage(error.what());
    }
}

}  // namespace vmk
