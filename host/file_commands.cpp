#include "host/file_commands.h"

#include <windows.h>

#include <array>
#include <cstdio>

#include "host/console.h"
#include "host/document_file.h"
#include "host/exit_status.h"
#include "host/failure.h"
#include "host/files.h"
#include "host/json_text.h"
#include "host/settings_keys.h"
#include "host/stored_settings.h"
#include "host/text.h"
#include "host/validation.h"
#include "host/value_commands.h"
#include "host/values.h"

namespace vmk {
namespace {

std::string Place(const std::wstring& file, int line) {
    return Utf8FromWide(file) + ":" + std::to_string(line) + ": ";
}

Document RequireFile(const CommandLine& line) {
    const std::wstring& path = line.operands.front();
    DocumentFile file = ReadDocumentFile(path, line.force ? Strictness::Forced : Strictness::Strict);
    if (file.faults.empty()) return std::move(file.document);
    const Fault& fault = file.faults.front();
    std::string more = "; nothing is changed";
    if (file.faults.size() > 1) {
        more += " (" + std::to_string(file.faults.size() - 1) + " more: vmkprefs validate " +
                Utf8FromWide(path) + ")";
    }
    throw Failure(Place(path, fault.line) + fault.reason + more);
}

// The sub-keys that a file lists. Blank lines are passed over.
std::vector<std::wstring> ReadList(const std::wstring& path) {
    const DecodedText decoded = DecodeText(ReadFileBytes(path));
    if (decoded.faultLine != 0) {
        throw Failure(Place(path, decoded.faultLine) + "the file is not in UTF-8 from here on");
    }
    std::vector<std::wstring> keys;
    std::wstring_view rest = decoded.text;
    for (int number = 1; !rest.empty(); ++number) {
        const std::size_t end = std::min(rest.find(L'\n'), rest.size());
        std::wstring_view name = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (name.ends_with(L'\r')) name.remove_suffix(1);
        if (name.empty()) continue;
        const auto key = SubKeyOf(Utf8FromWide(name));
        if (!key) {
            throw Failure(Place(path, number) + "'" + Utf8FromWide(name) +
                          "' is no sub-key; nothing is changed");
        }
        keys.push_back(*key);
    }
    return keys;
}

// Says on a terminal how far the work is, on a line that each time replaces the one before.
class Progress {
  public:
    explicit Progress(std::size_t whole) : m_whole(whole), m_isShown(ErrorsGoToTerminal()) {}
    ~Progress() {
        // Not every console knows how to clear a line.
        if (m_isShown) WriteError("\r" + std::string(LineOf(m_whole).size(), ' ') + "\r");
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(std::size_t done) const {
        if (m_isShown) WriteError("\r" + LineOf(done));
    }

  private:
    std::string LineOf(std::size_t done) const {
        return std::to_string(done) + " of " + std::to_string(m_whole) + " keys";
    }

    std::size_t m_whole;
    bool m_isShown;
};

std::string TimeOf(std::size_t keys, ULONGLONG milliseconds) {
    std::array<char, 96> text{};
    const double each = keys == 0 ? 0.0 : static_cast<double>(milliseconds) / static_cast<double>(keys);
    std::snprintf(text.data(), text.size(), "%llu keys in %.1f s, %.2f ms each\n",
                  static_cast<unsigned long long>(keys), static_cast<double>(milliseconds) / 1000.0, each);
    return text.data();
}

int ImportIntoList(const Document& document, const std::wstring& list) {
    const std::vector<std::wstring> keys = ReadList(list);
    const ULONGLONG start = GetTickCount64();
    SettingsChange change;
    {
        const Progress progress(keys.size());
        for (std::size_t done = 0; done != keys.size(); ++done) {
            progress.Show(done);
            change.Store(document, keys[done]);
        }
    }
    change.Commit();
    WarnOfLostTexts(document);
    WriteOutput(TimeOf(keys.size(), GetTickCount64() - start));
    return kExitDone;
}

int ValidateKey(const std::wstring& key, bool json) {
    const std::vector<Damage> damage = FindDamage(key);
    JsonList list;
    std::string text;
    for (const Damage& each : damage) {
        const std::string name(each.setting->name);
        text += name + " = " + each.stored + ": " + each.reason + "; a host reads " + each.read + "\n";
        list.Add(R"({"name": )" + JsonText(name) + R"(, "stored": )" + JsonText(each.stored) +
                 R"(, "reason": )" + JsonText(each.reason) + R"(, "read": )" + JsonText(each.read) + "}");
    }
    WriteOutput(json ? list.Text() + "\n" : text);
    return damage.empty() ? kExitDone : kExitFound;
}

int ValidateFile(const std::wstring& path, bool json) {
    const DocumentFile file = ReadDocumentFile(path, Strictness::Strict);
    JsonList list;
    std::string text;
    for (const Fault& fault : file.faults) {
        text += Place(path, fault.line) + fault.reason + "\n";
        list.Add(R"({"line": )" + std::to_string(fault.line) + R"(, "reason": )" + JsonText(fault.reason) +
                 "}");
    }
    WriteOutput(json ? list.Text() + "\n" : text);
    return file.faults.empty() ? kExitDone : kExitFound;
}

}  // namespace

int Export(const CommandLine& line) {
    Document document = RequireSettings(line.key);
    if (!line.withPasswords) RemovePasswords(document);
    const bool reg = line.reg || (!line.operands.empty() && IsRegFileName(line.operands.front()));
    const std::string bytes =
        reg ? WriteRegDocument(document, NameOfSettingsKey(line.key)) : WriteJsonDocument(document);
    if (!line.operands.empty()) {
        WriteFileBytes(line.operands.front(), bytes);
    } else {
        WriteOutput(bytes);
    }
    return kExitDone;
}

int Import(const CommandLine& line) {
    const Document document = RequireFile(line);
    if (line.dryRun) {
        const Document before = ReadSettings(line.key).value_or(Document());
        WriteOutput(FormatDifferences(ChangesBy(document, before), line));
        WarnOfLostTexts(document);
        return kExitDone;
    }
    if (!line.list.empty()) return ImportIntoList(document, line.list);
    StoreSettings(document, line.key);
    return kExitDone;
}

int Validate(const CommandLine& line) {
    const std::wstring what = line.operands.empty() ? L"." : line.operands.front();
    if (LooksLikeFile(what)) return ValidateFile(what, line.json);
    const auto key = SubKeyOf(Utf8FromWide(what));
    if (!key) throw Failure("'" + Utf8FromWide(what) + "' is neither a sub-key nor a file");
    return ValidateKey(*key, line.json);
}

}  // namespace vmk
