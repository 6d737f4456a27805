#include "host/verbs.h"

#include "host/pages.h"

namespace vmk {
namespace {

constexpr const char* kRegisteredHelp =
    "Use the registered component instead of the vmkctrl.dll beside this program";
constexpr const char* kLanguageHelp =
    "Windows language identifier, always hexadecimal, with or without 0x: 0407 is German "
    "(default: 0, the user's language)";

void AddKey(CLI::App& command, Typed& typed) {
    command.add_option("--key", typed.key, "Sub-key that holds the settings (default: the root key)")
        ->type_name("SUBKEY");
}

void AddJson(CLI::App& command, Typed& typed) {
    command.add_flag("--json", typed.json, "Print JSON");
}

void AddPasswords(CLI::App& command, Typed& typed) {
    command.add_flag("--with-passwords", typed.withPasswords,
                     "Do not leave passwords out, which are in plain form");
}

void AddForce(CLI::App& command, Typed& typed) {
    command.add_flag("--force", typed.force, "Take numbers that are neither a choice nor in the range");
}

void AddLanguage(CLI::App& command, Typed& typed) {
    command.add_option("--language", typed.language, kLanguageHelp)->type_name("LANGID");
}

void AddRegistered(CLI::App& command, Typed& typed) {
    command.add_flag("--registered", typed.registered, kRegisteredHelp);
}

CLI::Option* AddGroups(CLI::App& command, Typed& typed, const char* help) {
    command.footer("The names of pages and groups, in any case: " + ListOfPageNames() + ".");
    return command.add_option("GROUP", typed.groups, help)->type_name("");
}

CLI::Option* AddOperands(CLI::App& command, Typed& typed, const char* name, const char* help) {
    return command.add_option(name, typed.operands, help)->type_name("");
}

// One of several operands, each with a name of its own.
void AddOperand(CLI::App& command, Typed& typed, const char* name, const char* help) {
    const auto take = [&typed](const std::string& operand) { typed.operands.push_back(operand); };
    command.add_option_function<std::string>(name, take, help)->type_name("")->required();
}

void DeclareEdit(CLI::App& command, Typed& typed) {
    AddKey(command, typed);
    command.add_option("--pages", typed.pages, "Pages to list, joined by commas (default: all)")
        ->type_name("NAME,...");
    AddLanguage(command, typed);
    command.add_option("--title", typed.title, "Caption of the dialog")->type_name("TEXT");
    AddRegistered(command, typed);
    command.footer("The names of pages, in any case: " + ListOfPageNames() + ".");
}

void DeclareShow(CLI::App& command, Typed& typed) {
    AddKey(command, typed);
    command.add_flag("--texts", typed.texts,
                     "Add what each number means, as in \"1 (Auto)\": the English text that the dialog "
                     "shows for it, or its unit");
    AddJson(command, typed);
    AddGroups(command, typed, "Groups to print (default: everything)");
}

void DeclareGet(CLI::App& command, Typed& typed) {
    AddKey(command, typed);
    command.add_flag("--value", typed.bare, "Print the values alone, texts as they are");
    AddPasswords(command, typed);
    AddJson(command, typed);
    AddOperands(command, typed, "NAME", "Settings, by their stored names in any case")->required();
}

void DeclareSet(CLI::App& command, Typed& typed) {
    AddKey(command, typed);
    AddForce(command, typed);
    AddOperands(
        command, typed, "ASSIGNMENT",
        "NAME=VALUE: a setting and its value, which is a number in decimal or as 0x..., the English text "
        "of a choice, or a text")
        ->required();
}

void DeclareReset(CLI::App& command, Typed& typed) {
    AddKey(command, typed);
    AddRegistered(command, typed);
    AddGroups(command, typed, "Groups to reset")->required();
}

void DeclareJsonAlone(CLI::App& command, Typed& typed) {
    AddJson(command, typed);
}

void DeclareCopy(CLI::App& command, Typed& typed) {
    AddOperand(command, typed, "FROM", "Sub-key to copy; . is the root key");
    AddOperand(command, typed, "TO", "Sub-key to copy to");
}

void DeclareDiff(CLI::App& command, Typed& typed) {
    AddPasswords(command, typed);
    AddJson(command, typed);
    AddOperand(command, typed, "A", "A sub-key (. is the root key) or a file (*.json, *.reg)");
    AddOperand(command, typed, "B", "Another one");
}

void DeclareValidate(CLI::App& command, Typed& typed) {
    AddJson(command, typed);
    AddOperands(command, typed, "WHAT", "A sub-key or a file (*.json, *.reg; default: the root key)")
        ->expected(0, 1);
}

void DeclareExport(CLI::App& command, Typed& typed) {
    AddKey(command, typed);
    command.add_flag("--reg", typed.reg,
                     "Write what the registry editor imports, as for a FILE that ends in .reg");
    AddPasswords(command, typed);
    AddOperands(command, typed, "FILE", "File to write (default: standard output)")->expected(0, 1);
}

void DeclareImport(CLI::App& command, Typed& typed) {
    AddKey(command, typed);
    command.add_option("--keys", typed.list, "File that lists the sub-keys to import into, one a line")
        ->type_name("LIST")
        ->excludes("--key");
    command.add_flag("--dry-run", typed.dryRun, "Change nothing; print what would change");
    AddForce(command, typed);
    AddJson(command, typed);
    AddOperands(command, typed, "FILE", "File to read: JSON, or what the registry editor exports")
        ->required()
        ->expected(1);
}

void DeclareReport(CLI::App& command, Typed& typed) {
    command.add_option("--html", typed.html, "File to write")->type_name("FILE")->required();
    AddLanguage(command, typed);
    command
        .add_option("--folder", typed.folder, "Folder of the language files (default: the configured one)")
        ->type_name("FOLDER");
    AddOperands(command, typed, "KEY", "Sub-keys to report on (default: the root key, which is .)")
        ->expected(0, -1);
}

void DeclareLanguages(CLI::App& command, Typed& typed) {
    command.add_option("--folder", typed.folder, "Folder to look in (default: the configured one)")
        ->type_name("FOLDER");
    AddJson(command, typed);
}

void DeclareCompletion(CLI::App& command, Typed& typed) {
    AddOperands(command, typed, "SHELL", "powershell")->required()->expected(1);
}

void DeclareNothing(CLI::App&, Typed&) {}

constexpr Verb kVerbs[] = {
    {Action::Edit, "edit", "Opens the dialog and stores the settings on OK.", DeclareEdit},
    {Action::Show, "show", "Prints what is stored, by groups; passwords as asterisks.", DeclareShow},
    {Action::Get, "get", "Prints settings as a host reads them.", DeclareGet},
    {Action::Set, "set", "Stores settings: all of them, or none if one is wrong.", DeclareSet},
    {Action::Reset, "reset", "Sets groups to their default values, as far as the component resets them.",
     DeclareReset},
    {Action::Defaults, "defaults", "Prints every setting with its default; with --json as import reads it.",
     DeclareJsonAlone},
    {Action::Keys, "keys", "Lists the keys that hold settings.", DeclareJsonAlone},
    {Action::Copy, "copy", "Makes the settings of one key those of another, passwords included.",
     DeclareCopy},
    {Action::Diff, "diff", "Compares two keys, two files, or a key and a file.", DeclareDiff},
    {Action::Validate, "validate", "Says which values are damaged and what a host reads instead.",
     DeclareValidate},
    {Action::Export, "export", "Writes every setting of a key as a host reads it, but for passwords.",
     DeclareExport},
    {Action::Import, "import", "Stores the settings of a file: all of them, or none if one is wrong.",
     DeclareImport},
    {Action::Report, "report", "Writes a page for browsers about every setting of keys, but for passwords.",
     DeclareReport},
    {Action::Presets, "presets", "Lists the presets beside this program, which import reads.",
     DeclareJsonAlone},
    {Action::Languages, "languages", "Lists the language files: what they are and what is wrong with them.",
     DeclareLanguages},
    {Action::Completion, "completion", "Prints a script that completes commands in a shell.",
     DeclareCompletion},
    {Action::Register, "register", "Registers the vmkctrl.dll beside this program.", DeclareNothing},
    {Action::Unregister, "unregister", "Removes that registration.", DeclareNothing},
};

}  // namespace

void DeclareGrammar(CLI::App& app, Typed& typed) {
    // A title or a key may well begin with a slash.
    app.allow_windows_style_options(false);
    app.require_subcommand(0, 1);
    app.footer("vmkprefs COMMAND --help tells what may follow a command.");
    AddRegistered(app, typed);
    app.add_flag("--version", typed.version,
                 "Print the versions of this program and of the component, and its build id");
    AddJson(app, typed);
    for (const Verb& verb : kVerbs) {
        CLI::App& command = *app.add_subcommand(verb.name, verb.help);
        command.fallthrough();  // --registered is understood behind the command as well
        command.footer("");
        verb.declare(command, typed);
    }
}

const Verb* ParsedVerb(const CLI::App& app) {
    for (const Verb& verb : kVerbs) {
        if (app.got_subcommand(verb.name)) return &verb;
    }
    return nullptr;
}

std::string ListOfVerbs() {
    std::string list;
    for (const Verb& verb : kVerbs) list.append(list.empty() ? "" : ", ").append(verb.name);
    return list;
}

}  // namespace vmk
