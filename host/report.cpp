#include "host/report.h"

#include "host/exit_status.h"
#include "host/files.h"
#include "host/report_page.h"
#include "host/resource_ids.h"
#include "host/resources.h"
#include "host/settings_keys.h"
#include "host/stored_settings.h"

namespace vmk {

int Report(const CommandLine& line) {
    const ReportWords words(line.language, line.folder);
    std::vector<std::wstring> subKeys = line.operands;
    if (subKeys.empty()) subKeys.emplace_back();
    std::vector<ReportedKey> keys;
    keys.reserve(subKeys.size());
    for (const std::wstring& subKey : subKeys) {
        keys.push_back({.name = NameOfSettingsKey(subKey),
                        .document = RequireSettings(subKey),
                        .damage = FindDamage(subKey)});
    }
    const PageParts parts{.style = Resource(IDR_REPORT_STYLE), .script = Resource(IDR_REPORT_SCRIPT)};
    WriteFileBytes(line.html, ReportPage(keys, words, parts));
    return kExitDone;
}

}  // namespace vmk
