#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/document.h"

namespace vmk {

// Something in a file that keeps it from being imported.
struct Fault {
    int line = 0;
    std::string reason;
};

struct DocumentFile {
    Document document;
    std::wstring description;   // what the file says of itself, if anything
    std::vector<Fault> faults;  // in the order of the file
};

// Whether numbers beyond the choices and the range of their settings are taken.
enum class Strictness { Strict, Forced };

// Puts together what a file says, and says what is wrong with it: unknown and doubled names, values of the
// wrong kind and, unless forced, numbers that a setting may not have.
class DocumentBuilder {
  public:
    explicit DocumentBuilder(Strictness strictness) : m_strictness(strictness) {}

    void Add(const std::wstring& name, int line, const Value& value);
    void Refuse(int line, const std::string& reason) { m_file.faults.push_back({line, reason}); }
    void Describe(std::wstring description) { m_file.description = std::move(description); }
    DocumentFile Take() { return std::move(m_file); }

    // The setting of a name that may follow; null, and a fault, for an unknown or repeated one.
    const SettingInfo* Find(const std::wstring& name, int line);

  private:
    Strictness m_strictness;
    DocumentFile m_file;
    std::set<const SettingInfo*> m_named;
};

// Reads a document of settings from the bytes of a file: JSON in UTF-8, or in UTF-16 with a byte-order mark,
// or what the registry editor exports.
DocumentFile ReadDocument(std::string_view bytes, Strictness strictness);

// The same from a file; throws Failure when it cannot be read.
DocumentFile ReadDocumentFile(const std::wstring& path, Strictness strictness);

// The one form or the other of what stands in a file already decoded.
DocumentFile ReadJsonDocument(std::wstring_view text, Strictness strictness);
DocumentFile ReadRegDocument(std::wstring_view text, Strictness strictness);

std::string WriteJsonDocument(const Document& document);
// The settings as values of a key, which is named in full. UTF-16 with a byte-order mark.
std::string WriteRegDocument(const Document& document, const std::string& key);

// Whether an argument that may name a key or a file names a file: by its ending, or because there is one.
bool LooksLikeFile(const std::wstring& name);

// Whether a name of a file is one of the registry editor's.
bool IsRegFileName(const std::wstring& path);

}  // namespace vmk
