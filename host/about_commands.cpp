#include "host/about_commands.h"

#include <windows.h>

#include "host/completion.h"
#include "host/console.h"
#include "host/document_file.h"
#include "host/exit_status.h"
#include "host/files.h"
#include "host/installed_languages.h"
#include "host/json_text.h"
#include "host/preferences_client.h"
#include "host/text.h"
#include "host/versions.h"

namespace vmk {
namespace {

std::string Percent(const InstalledLanguage& language) {
    if (language.texts == 0) return "";
    return ", " + std::to_string(language.translated * 100 / language.texts) + " % of " +
           std::to_string(language.texts) + " texts";
}

std::string JsonOf(const InstalledLanguage& language) {
    std::string faults;
    for (const std::string& fault : language.faults) {
        if (!faults.empty()) faults += ", ";
        faults += JsonText(fault);
    }
    return R"({"file": )" + JsonText(language.file) + R"(, "id": )" + JsonText(language.id) +
           R"(, "name": )" + JsonText(language.name) + R"(, "translated": )" +
           std::to_string(language.translated) + R"(, "texts": )" + std::to_string(language.texts) +
           R"(, "faults": [)" + faults + "]}";
}

}  // namespace

int ListPresets(const CommandLine& line) {
    const std::wstring folder = PathBesideProgram(L"presets\\");
    JsonList json;
    std::string text;
    for (const std::wstring& name : FilesIn(folder, L"*.json")) {
        const DocumentFile file = ReadDocumentFile(folder + name, Strictness::Strict);
        const std::string says =
            file.faults.empty() ? Utf8FromWide(file.description) : "damaged: vmkprefs validate tells more";
        text.append(Utf8FromWide(folder + name)).append("\n    ").append(says).append("\n");
        json.Add(R"({"file": )" + JsonText(folder + name) + R"(, "description": )" + JsonText(says) + "}");
    }
    WriteOutput(line.json ? json.Text() + "\n" : text);
    return kExitDone;
}

int ListLanguages(const CommandLine& line) {
    JsonList json;
    std::string text;
    for (const InstalledLanguage& language : InstalledLanguages(line.folder)) {
        text.append(Utf8FromWide(language.file)).append("\n    ");
        text.append(language.id.empty() ? "no identifier" : language.id).append(" ");
        text.append(Utf8FromWide(language.name)).append(Percent(language)).append("\n");
        for (const std::string& fault : language.faults) text.append("    ").append(fault).append("\n");
        json.Add(JsonOf(language));
    }
    WriteOutput(line.json ? json.Text() + "\n" : text);
    return kExitDone;
}

int ShowVersions(const CommandLine& line) {
    const std::string own = VersionOf(PathBesideProgram(L"vmkprefs.exe"));
    const std::wstring path =
        PathOfComponent(line.registered ? ComponentSource::Registered : ComponentSource::BesideProgram);
    const std::string version = VersionOf(path);
    const std::string build = BuildIdOf(path);
    JsonObject json;
    json.Add("vmkprefs", JsonText(own));
    json.Add("vmkctrl", JsonText(version));
    json.Add("build", JsonText(build));
    json.Add("path", JsonText(path));
    WriteOutput(line.json ? json.Text() + "\n"
                          : "vmkprefs " + own + "\nvmkctrl.dll " + version + ", build " + build + ", " +
                                Utf8FromWide(path) + "\n");
    return kExitDone;
}

int Complete() {
    WriteOutput(PowerShellCompletion());
    return kExitDone;
}

}  // namespace vmk
