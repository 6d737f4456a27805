#include "tests/support/language_files.h"

#include <cstdio>

#include "tests/support/utf16_bytes.h"

namespace vmk::test {
namespace {

// A text between the quotes of a language file.
std::wstring Quoted(const std::wstring& text) {
    std::wstring quoted = L"\"";
    for (const wchar_t character : text) {
        switch (character) {
            case L'\n':
                quoted += L"\\n";
                break;
            case L'\r':
                quoted += L"\\r";
                break;
            case L'\\':
            case L'"':
                quoted += L'\\';
                [[fallthrough]];
            default:
                quoted += character;
        }
    }
    return quoted + L"\"";
}

}  // namespace

void LanguageFiles::WriteText(const std::wstring& name, std::wstring_view text) const {
    Write(name, LanguageFileBytes(text));
}

void LanguageFiles::WriteTranslations(const std::wstring& name, std::uint32_t langid,
                                      const Translations& entries) const {
    wchar_t header[64];
    std::swprintf(header, 64, L"$langid = %04x\r\n", langid);
    std::wstring text = header;
    text += L"$productID = vmkctrl.PdfPrinterPreferences\r\n";
    for (const auto& [source, translation] : entries)
        text += Quoted(source) + L" = " + Quoted(translation) + L"\r\n";
    WriteText(name, text);
}

}  // namespace vmk::test
