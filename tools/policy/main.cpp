// Writes what administrators hand out to many users:
//
//   policy_files --german=FILE... [--key=NAME] FOLDER [NAME=VALUE...]
//
// FOLDER gets the files; the values are those that the files prescribe which hold values (all defaults, but
// for passwords, when none is given). The language files with the German texts are
// build/release/languages/german.vlf and that of tools/policy/german.txt.

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/policy/policy_definitions.h"
#include "tools/policy/registry_files.h"
#include "tools/policy/text.h"
#include "tools/policy/translation.h"

namespace {

namespace policy = vmk::policy;

struct Arguments {
    std::vector<std::string> german;
    std::string key;
    std::filesystem::path folder;
    std::vector<policy::Assignment> values;
};

Arguments ReadArguments(const std::vector<std::string_view>& words) {
    Arguments arguments;
    constexpr std::string_view kGerman = "--german=";
    constexpr std::string_view kKey = "--key=";
    for (const std::string_view word : words) {
        if (word.starts_with(kGerman)) {
            arguments.german.emplace_back(word.substr(kGerman.size()));
        } else if (word.starts_with(kKey)) {
            arguments.key = word.substr(kKey.size());
        } else if (arguments.folder.empty()) {
            arguments.folder = word;
        } else {
            arguments.values.push_back(policy::ReadAssignment(word));
        }
    }
    if (arguments.folder.empty()) throw policy::Refusal("no folder is named");
    if (arguments.values.empty()) arguments.values = policy::Defaults();
    // In the order of storing, which is that of the list that they point into.
    std::ranges::sort(arguments.values, {}, &policy::Assignment::first);
    const auto twice = std::ranges::adjacent_find(arguments.values, {}, &policy::Assignment::first);
    if (twice != arguments.values.end())
        throw policy::Refusal(std::string(twice->first->name) + " is named twice");
    return arguments;
}

void Write(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    file.close();
    if (!file) throw policy::Refusal(path.string() + " cannot be written");
}

// Everything is made before the first file is written.
void WriteFiles(const Arguments& arguments) {
    const policy::PolicyKey key(arguments.key);
    const policy::FromLanguageFiles german(arguments.german);
    const std::pair<std::string, std::string> files[] = {
        {key.Identifier() + ".admx", policy::PolicyDefinitions(key)},
        {"en-US/" + key.Identifier() + ".adml", policy::PolicyTexts(key, policy::English())},
        {"de-DE/" + key.Identifier() + ".adml", policy::PolicyTexts(key, german)},
        {"Registry.xml", policy::PreferenceItems(key, arguments.values)},
        {"preferences.reg", policy::RegistryFile("HKEY_CURRENT_USER", key, arguments.values)},
        {"new-user.reg", policy::RegistryFile(policy::NewUserHive(), key, arguments.values)},
        {"new-user.cmd", policy::NewUserCommands()},
    };
    for (const auto& [name, bytes] : files) Write(arguments.folder / name, bytes);
}

}  // namespace

int main(int count, char** words) {
    try {
        WriteFiles(ReadArguments({words + 1, words + count}));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "error: %s\n", error.what());
        return 2;
    }
}
