#include "host/command_line.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include "host/exit_status.h"
#include "host/pages.h"
#include "host/text.h"
#include "host/verbs.h"

namespace vmk {
namespace {

constexpr const char* kDescription =
    "Edits, shows, changes and moves the printing preferences of the virtual PDF printer.\n"
    "Exit status: 0 done, OK or no difference, 1 cancelled, different or damaged, 2 wrong usage or failure.";

class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

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

std::wstring KeyOf(const std::string& text) {
    if (auto key = SubKeyOf(text)) return *std::move(key);
    throw UsageError("'" + text + "' is no sub-key; every backslash has to stand between two names");
}

// Commands whose operands are keys and nothing else.
bool TakesKeys(Action action) {
    return action == Action::Copy || action == Action::Report;
}

// Commands that print JSON. --json may stand in front of the command, where every one would have it.
bool PrintsJson(Action action) {
    constexpr Action kPrinters[] = {Action::Show,      Action::Get,      Action::Defaults, Action::Keys,
                                    Action::Diff,      Action::Validate, Action::Import,   Action::Presets,
                                    Action::Languages, Action::Version};
    return std::ranges::find(kPrinters, action) != std::end(kPrinters);
}

bool UsesComponent(Action action) {
    return action == Action::Edit || action == Action::Reset || action == Action::Version;
}

void CheckCombination(const CommandLine& line) {
    if (line.registered && !UsesComponent(line.action)) {
        throw UsageError("--registered has no meaning here: nothing is asked of the component");
    }
    if (line.json && !PrintsJson(line.action)) throw UsageError("--json has no meaning here");
    if (line.json && line.action == Action::Import && !line.dryRun) {
        throw UsageError("--json has no meaning here without --dry-run");
    }
    if (line.dryRun && !line.list.empty()) throw UsageError("--dry-run is for one key, not for --keys");
    if (line.action == Action::Completion && line.operands.front() != L"powershell") {
        throw UsageError("the shell that can be completed is powershell");
    }
}

CommandLine Checked(Action action, const Typed& typed) {
    CommandLine line{.action = action,
                     .registered = typed.registered,
                     .key = KeyOf(typed.key),
                     .pages = {},
                     .texts = typed.texts,
                     .language = LanguageOf(typed.language),
                     .title = WideFromUtf8(typed.title),
                     .operands = {},
                     .list = WideFromUtf8(typed.list),
                     .folder = WideFromUtf8(typed.folder),
                     .html = WideFromUtf8(typed.html),
                     .json = typed.json,
                     .bare = typed.bare,
                     .reg = typed.reg,
                     .withPasswords = typed.withPasswords,
                     .force = typed.force,
                     .dryRun = typed.dryRun};
    if (action == Action::Edit) line.pages = PagesOf(SplitAtCommas(typed.pages));
    if (!typed.groups.empty()) line.pages = PagesOf(typed.groups);
    for (const std::string& operand : typed.operands) {
        line.operands.push_back(TakesKeys(action) ? KeyOf(operand) : WideFromUtf8(operand));
    }
    CheckCombination(line);
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
    CLI::App app(kDescription, "vmkprefs");
    DeclareGrammar(app, typed);
    const std::string missing = "give one of the commands " + ListOfVerbs();
    try {
        app.parse(reversed);
        const Verb* const verb = ParsedVerb(app);
        if (!verb && !typed.version) return WrongUsage(missing);
        return Checked(verb ? verb->action : Action::Version, typed);
    } catch (const CLI::Success& request) {
        std::ostringstream help;
        app.exit(request, help, help);
        return CommandLineAnswer{.status = kExitDone, .text = help.str()};
    } catch (const CLI::Error& error) {
        return WrongUsage(app.get_subcommands().empty() ? missing : error.what());
    } catch (const UsageError& error) {
        return WrongUsage(error.what());
    }
}

std::optional<std::wstring> SubKeyOf(const std::string& text) {
    if (text == ".") return L"";
    // The registry would refuse such a key, and the component would say nothing about it.
    if (text.starts_with('\\') || text.ends_with('\\') || text.find("\\\\") != std::string::npos) {
        return std::nullopt;
    }
    return WideFromUtf8(text);
}

}  // namespace vmk
