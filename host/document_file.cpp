#include "host/document_file.h"

#include "host/files.h"
#include "host/text.h"
#include "host/values.h"

namespace vmk {
namespace {

constexpr std::wstring_view kRegStart = L"Windows Registry Editor";
constexpr std::wstring_view kOldRegStart = L"REGEDIT";

std::string Kinds(const SettingInfo& setting) {
    if (setting.kind == Kind::NumberOrText) return "a number or a text";
    return setting.kind == Kind::Text ? "a text" : "a number";
}

}  // namespace

const SettingInfo* DocumentBuilder::Find(const std::wstring& name, int line) {
    const SettingInfo* const setting = FindSetting(Utf8FromWide(name));
    if (!setting) {
        Refuse(line, "there is no setting '" + Utf8FromWide(name) + "'; vmkprefs defaults lists them all");
        return nullptr;
    }
    if (m_named.insert(setting).second) return setting;
    Refuse(line, std::string(setting->name) + " stands here for the second time");
    return nullptr;
}

void DocumentBuilder::Add(const std::wstring& name, int line, const Value& value) {
    const SettingInfo* const setting = Find(name, line);
    if (!setting) return;
    const bool isText = std::holds_alternative<std::wstring>(value);
    if (isText ? !setting->TakesTexts() : !setting->TakesNumbers()) {
        Refuse(line, std::string(setting->name) + " has to be " + Kinds(*setting));
        return;
    }
    if (isText || m_strictness == Strictness::Strict) {
        if (const auto complaint = Complaint(*setting, value)) {
            Refuse(line, std::string(setting->name) + ": " + *complaint);
            return;
        }
    }
    m_file.document.emplace(setting, value);
}

DocumentFile ReadDocument(std::string_view bytes, Strictness strictness) {
    const DecodedText decoded = DecodeText(bytes);
    if (decoded.faultLine != 0) {
        DocumentBuilder builder(strictness);
        builder.Refuse(decoded.faultLine, "the file is not in UTF-8 from here on");
        return builder.Take();
    }
    const std::wstring& text = decoded.text;
    const bool isReg = text.starts_with(kRegStart) || text.starts_with(kOldRegStart);
    return isReg ? ReadRegDocument(text, strictness) : ReadJsonDocument(text, strictness);
}

DocumentFile ReadDocumentFile(const std::wstring& path, Strictness strictness) {
    return ReadDocument(ReadFileBytes(path), strictness);
}

bool LooksLikeFile(const std::wstring& name) {
    const std::string narrow = Utf8FromWide(name);
    return EndsWithIgnoringCase(narrow, ".json") || EndsWithIgnoringCase(narrow, ".reg") || FileIsThere(name);
}

bool IsRegFileName(const std::wstring& path) {
    return EndsWithIgnoringCase(Utf8FromWide(path), ".reg");
}

}  // namespace vmk
