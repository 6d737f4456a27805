#include "host/commands.h"

#include <optional>
#include <vector>

#include "host/console.h"
#include "host/exit_status.h"
#include "host/failure.h"
#include "host/preferences_client.h"
#include "host/stored_settings.h"

namespace vmk {
namespace {

constexpr auto kEveryGroup = static_cast<PageBits>(AllPages);

ComponentSource SourceOf(const CommandLine& line) {
    return line.registered ? ComponentSource::Registered : ComponentSource::BesideProgram;
}

int Edit(const CommandLine& line) {
    PreferencesClient preferences(SourceOf(line));
    preferences.Load(line.key);
    preferences.EnablePages(line.pages.value_or(kEveryGroup));
    preferences.SetTitle(line.title);
    if (!preferences.OpenDialog(line.language)) return kExitCancelled;
    preferences.Store(kEveryGroup, line.key);
    return kExitDone;
}

int Show(const CommandLine& line) {
    const std::optional<std::vector<StoredSetting>> settings = ReadStoredSettings(line.key);
    if (!settings) throw Failure("there is no key " + NameOfSettingsKey(line.key));
    WriteOutput(FormatSettings(*settings, line.pages));
    return kExitDone;
}

// The groups that resetting changes: two of them have no settings, and reset one of another group.
PageBits GroupsChangedByResetOf(PageBits groups) {
    if (groups & CustomForms) groups |= General;
    if (groups & Profiles) groups |= Optimization;
    return groups;
}

int Reset(const CommandLine& line) {
    const PageBits groups = line.pages.value_or(0);
    PreferencesClient preferences(SourceOf(line));
    preferences.Load(line.key);
    preferences.UseDefaults(groups);
    preferences.Store(GroupsChangedByResetOf(groups), line.key);
    return kExitDone;
}

}  // namespace

int Execute(const CommandLine& line) {
    switch (line.action) {
        case Action::Edit:
            return Edit(line);
        case Action::Show:
            return Show(line);
        case Action::Reset:
            return Reset(line);
        case Action::Register:
            RegisterComponent();
            return kExitDone;
        case Action::Unregister:
            UnregisterComponent();
            return kExitDone;
    }
    return kExitFailure;
}

}  // namespace vmk
