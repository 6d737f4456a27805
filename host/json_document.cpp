#include <charconv>

#include "host/document_file.h"
#include "host/json_text.h"
#include "host/text.h"

namespace vmk {
namespace {

constexpr std::wstring_view kSchema = L"1";
constexpr std::wstring_view kProduct = L"vmkctrl.PdfPrinterPreferences";

std::optional<std::int32_t> WholeNumber(const std::wstring& digits) {
    const std::string narrow = Utf8FromWide(digits);
    const char* const end = narrow.data() + narrow.size();
    std::int32_t number = 0;
    const auto [stop, error] = std::from_chars(narrow.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

// The members that every file has to have, and one that it may have.
class HeadReader {
  public:
    HeadReader(JsonReader& reader, DocumentBuilder& builder) : m_reader(reader), m_builder(builder) {}

    void ReadMember(const std::wstring& name, int line) {
        if (!m_named.insert(name).second) {
            m_builder.Refuse(line, "\"" + Utf8FromWide(name) + "\" stands here for the second time");
        }
        if (name == L"settings") {
            m_reader.ReadObject([&](const std::wstring& setting, int at) { ReadSetting(setting, at); });
        } else {
            ReadText(name, line);
        }
    }

    void RequireAll(int line) {
        for (const wchar_t* const name : {L"schema", L"product", L"settings"}) {
            if (!m_named.contains(name)) m_builder.Refuse(line, "there is no \"" + Utf8FromWide(name) + "\"");
        }
    }

  private:
    void ReadText(const std::wstring& name, int line) {
        const JsonValue value = m_reader.ReadValue();
        if (name == L"schema") {
            if (value.kind == JsonValue::Kind::Number && value.text == kSchema) return;
            m_builder.Refuse(line, "this program knows \"schema\": 1 only");
        } else if (name == L"product") {
            if (value.kind == JsonValue::Kind::Text && value.text == kProduct) return;
            m_builder.Refuse(line, "the product is not " + Utf8FromWide(kProduct));
        } else if (name == L"description") {
            if (value.kind == JsonValue::Kind::Text) return m_builder.Describe(value.text);
            m_builder.Refuse(line, "the description has to be a text");
        } else {
            m_builder.Refuse(line, "there is no place for \"" + Utf8FromWide(name) + "\" here");
        }
    }

    void ReadSetting(const std::wstring& name, int line) {
        JsonValue value = m_reader.ReadValue();
        if (value.kind == JsonValue::Kind::Text) {
            m_builder.Add(name, line, std::move(value.text));
        } else if (value.kind == JsonValue::Kind::Other) {
            if (m_builder.Find(name, line)) {
                m_builder.Refuse(line, Utf8FromWide(name) + " has to be a number or a text");
            }
        } else if (const auto number = WholeNumber(value.text)) {
            m_builder.Add(name, line, *number);
        } else {
            m_builder.Refuse(line, Utf8FromWide(name + L": " + value.text) +
                                       " is no whole number that the registry can hold");
        }
    }

    JsonReader& m_reader;
    DocumentBuilder& m_builder;
    std::set<std::wstring> m_named;
};

}  // namespace

DocumentFile ReadJsonDocument(std::wstring_view text, Strictness strictness) {
    DocumentBuilder builder(strictness);
    try {
        JsonReader reader(text);
        HeadReader head(reader, builder);
        reader.ReadObject([&](const std::wstring& name, int line) { head.ReadMember(name, line); });
        reader.ReadEnd();
        head.RequireAll(1);
    } catch (const JsonFault& fault) {
        builder.Refuse(fault.Line(), fault.what());
    }
    return builder.Take();
}

std::string WriteJsonDocument(const Document& document) {
    std::string json = "{\n  \"schema\": " + Utf8FromWide(kSchema) +
                       ",\n  \"product\": " + JsonText(kProduct) + ",\n  \"settings\": {";
    const char* separator = "\n";
    for (const auto& [setting, value] : document) {
        json.append(separator).append("    ").append(JsonText(setting->name)).append(": ");
        json += JsonValueOf(value);
        separator = ",\n";
    }
    return json + "\n  }\n}\n";
}

}  // namespace vmk
