#include "tools/settings_reference.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "settings/fields.h"

namespace vmk::docs {
namespace {

struct Group {
    PageSet bit;
    std::string_view title;
    std::string_view identifier;  // in PdfPrinterDialogPage
};

constexpr Group kGroups[] = {
    {page_bit::kPaper, "Paper", "Paper"},
    {page_bit::kGeneral, "General", "General"},
    {page_bit::kCompression, "Compression", "Compression"},
    {page_bit::kGraphics, "Graphics", "Graphics"},
    {page_bit::kFonts, "Fonts", "Fonts"},
    {page_bit::kWatermarks, "Watermarks", "Watermarks"},
    {page_bit::kSecurity, "Security", "Security"},
    {page_bit::kLinks, "Links", "Links"},
    {page_bit::kBookmarks, "Bookmarks", "Bookmarks"},
    {page_bit::kDocumentInfo, "Document information", "DocumentInfo"},
    {page_bit::kSave, "Save", "Save"},
    {page_bit::kEmail, "E-mail", "eMail"},
    {page_bit::kOptimization, "Optimization", "Optimization"},
    {page_bit::kOverlay, "Overlay", "Overlay"},
    {page_bit::kDigitalSign, "Digital signature", "DigitalSign"},
};

constexpr std::string_view kIntroduction =
    "# Settings\n"
    "\n"
    "Written by `settings_reference` from `settings/fields.h` and `tools/setting_descriptions.h`; do not "
    "edit.\n"
    "\n"
    "Each setting is one named value of the key\n"
    "`HKEY_CURRENT_USER\\SOFTWARE\\Orrin Systems\\vmkctrl.PdfPrinterPreferences\\` or of a sub-key that the "
    "host chooses.\n"
    "Numbers are `REG_DWORD`, texts are `REG_SZ` in the ANSI code page. A number is taken as it is stored, "
    "without a check of\n"
    "its range; a missing value is read as its default.\n"
    "\n"
    "The heading of a group names the bit that selects it in `InitFromRegistry`, `StoreInRegistry`, "
    "`UseDefaultValues`,\n"
    "`EnablePage` and `DisablePage`.\n";

// Settings are ASCII where they are written down.
std::string Quoted(const std::wstring& text) {
    return text.empty() ? "empty" : "`" + std::string(text.begin(), text.end()) + "`";
}

struct RowWriter {
    std::ostream& out;

    void operator()(const char* name, std::int32_t number) const {
        Row(name, "number", std::to_string(number));
    }
    void operator()(const char* name, const std::wstring& text) const { Row(name, "text", Quoted(text)); }
    void operator()(const char* name, const RunApplication& run) const {
        Row(name, "number or text", run.Use ? Quoted(run.Path) : "0");
    }
    void operator()(const char* name, const SwapToDisk& swap) const {
        Row(name, "number", std::to_string(swap.Enabled ? swap.Megabytes : 0));
    }

  private:
    void Row(const char* name, std::string_view kind, const std::string& defaultValue) const {
        const SettingDescription* description = FindDescription(name);
        if (!description) throw std::logic_error(std::string("no description of ") + name);
        out << "| `" << name << "` | " << kind << " | " << defaultValue << " | " << description->values
            << " | " << description->meaning << " |\n";
    }
};

}  // namespace

const SettingDescription* FindDescription(std::string_view name) {
    const auto* found = std::ranges::find(kSettingDescriptions, name, &SettingDescription::name);
    return found == std::end(kSettingDescriptions) ? nullptr : found;
}

std::string SettingsReference() {
    std::ostringstream out;
    out << kIntroduction;
    const PrinterSettings defaults;
    for (const Group& group : kGroups) {
        out << "\n## " << group.title << " (`" << group.identifier << "`, 0x" << std::hex << std::uppercase
            << group.bit << std::dec << ")\n\n"
            << "| Name | Kind | Default | Values | Meaning |\n"
            << "|---|---|---|---|---|\n";
        fields::Walk(group.bit, RowWriter{out}, defaults);
    }
    return out.str();
}

}  // namespace vmk::docs
