#include "host/completion.h"

#include "host/catalogue.h"
#include "host/verbs.h"

namespace vmk {
namespace {

constexpr const char* kScript = R"ps1(
$vmkprefsCompleter = {
    param($wordToComplete, $commandAst, $cursorPosition)
    $words = @($commandAst.CommandElements | ForEach-Object { $_.ToString() })
    $command = $words | Where-Object { $vmkprefsOptions.Contains($_) } | Select-Object -First 1
    if (-not $command) {
        $candidates = @($vmkprefsOptions.Keys) + $vmkprefsGlobalOptions
    } else {
        $candidates = $vmkprefsOptions[$command]
        if ($command -eq 'get') { $candidates += $vmkprefsSettings }
        if ($command -eq 'set') { $candidates += $vmkprefsSettings | ForEach-Object { "$_=" } }
    }
    $candidates | Where-Object { $_ -like "$wordToComplete*" } | ForEach-Object {
        [System.Management.Automation.CompletionResult]::new($_, $_, 'ParameterValue', $_)
    }
}
Register-ArgumentCompleter -Native -CommandName vmkprefs, vmkprefs.exe -ScriptBlock $vmkprefsCompleter
)ps1";

std::string LongOptions(const CLI::App& app) {
    std::string list;
    for (const CLI::Option* const option : app.get_options()) {
        for (const std::string& name : option->get_lnames())
            list += (list.empty() ? "'--" : ", '--") + name + "'";
    }
    return "@(" + list + ")";
}

}  // namespace

std::string PowerShellCompletion() {
    Typed typed;
    CLI::App app("", "vmkprefs");
    DeclareGrammar(app, typed);
    std::string script =
        "# Completion of vmkprefs. In a profile: vmkprefs completion powershell | Out-String | "
        "Invoke-Expression\n"
        "$vmkprefsOptions = [ordered]@{\n";
    for (const CLI::App* const command : app.get_subcommands({})) {
        script += "    '" + command->get_name() + "' = " + LongOptions(*command) + "\n";
    }
    script += "}\n$vmkprefsGlobalOptions = " + LongOptions(app) + "\n$vmkprefsSettings = @(";
    for (const SettingInfo& setting : Settings()) {
        script.append(&setting == &Settings().front() ? "'" : ", '").append(setting.name).append("'");
    }
    return script + ")" + kScript;
}

}  // namespace vmk
