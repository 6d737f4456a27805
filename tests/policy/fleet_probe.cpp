// What a user has of a policy, for script/fleet-test:
//
//   fleet_probe dialog          opens the preferences dialog, prints NAME=TEXT for what it shows, and closes
//   it by OK:
//                               what its controls hold has to be what it has loaded
//   fleet_probe hives FOLDER    for each NAME.reg in the folder makes a hive HKEY_USERS\NAME, stores the
//   values there, and
//                               has the component read them as that user's; prints NAME MILLISECONDS each
//
// Exit status 0: everything is as it should be, 1: the dialog or a hive has something else, 2: wrong usage or
// a failure.

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/catalogue.h"
#include "host/document_file.h"
#include "host/text.h"
#include "host/validation.h"
#include "resources/ids/bookmarks.h"
#include "resources/ids/compression.h"
#include "resources/ids/document_info.h"
#include "resources/ids/email.h"
#include "resources/ids/fonts.h"
#include "resources/ids/general.h"
#include "resources/ids/graphics.h"
#include "resources/ids/links.h"
#include "resources/ids/optimization.h"
#include "resources/ids/overlay.h"
#include "resources/ids/paper.h"
#include "resources/ids/save.h"
#include "resources/ids/watermarks.h"
#include "settings/registry_path.h"
#include "tests/support/live_dialog.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_settings.h"

namespace vmk::test {
namespace {

// --- the dialog

enum class Kind { Switch, List, Text };

struct Shown {
    const char* setting;
    const wchar_t* page;
    UINT id;
    Kind kind;
};

// Settings that one control shows as they are.
constexpr Shown kShown[] = {
    {"Paper.Nup", L"Paper", IDC_PAPER_COUNT, Kind::List},
    {"General.PageLayout", L"General", IDC_GENERAL_PAGE_LAYOUT, Kind::List},
    {"General.PageMode", L"General", IDC_GENERAL_PAGE_MODE, Kind::List},
    {"General.VP.HideToolbars", L"General", IDC_GENERAL_HIDE_TOOLBARS, Kind::Switch},
    {"General.VP.HideMenubar", L"General", IDC_GENERAL_HIDE_MENUBAR, Kind::Switch},
    {"General.VP.HideUI", L"General", IDC_GENERAL_HIDE_UI, Kind::Switch},
    {"General.VP.ShowTitle", L"General", IDC_GENERAL_SHOW_TITLE, Kind::Switch},
    {"General.VP.Fit", L"General", IDC_GENERAL_FIT_WINDOW, Kind::Switch},
    {"General.VP.Center", L"General", IDC_GENERAL_CENTER_WINDOW, Kind::Switch},
    {"Compression.Graphics", L"Compression", IDC_COMPRESSION_GRAPHICS, Kind::Switch},
    {"Compression.ASCII", L"Compression", IDC_COMPRESSION_ASCII, Kind::Switch},
    {"Compression.Text", L"Compression", IDC_COMPRESSION_TEXT, Kind::Switch},
    {"Compression.Color.Method", L"Compression", IDC_COMPRESSION_COLOR_METHOD, Kind::List},
    {"Compression.Color.JPEGQuality", L"Compression", IDC_COMPRESSION_QUALITY, Kind::Text},
    {"Compression.Indexed.Method", L"Compression", IDC_COMPRESSION_INDEXED_METHOD, Kind::List},
    {"Compression.Mono.Method", L"Compression", IDC_COMPRESSION_MONO_METHOD, Kind::List},
    {"Downsample.Color.Use", L"Graphics", IDC_GRAPHICS_COLOR_USE, Kind::Switch},
    {"Downsample.Color.DPI", L"Graphics", IDC_GRAPHICS_COLOR_DPI, Kind::Text},
    {"Downsample.Color.Method", L"Graphics", IDC_GRAPHICS_COLOR_METHOD, Kind::List},
    {"Downsample.Indexed.Use", L"Graphics", IDC_GRAPHICS_INDEXED_USE, Kind::Switch},
    {"Downsample.Indexed.DPI", L"Graphics", IDC_GRAPHICS_INDEXED_DPI, Kind::Text},
    {"Downsample.Indexed.Method", L"Graphics", IDC_GRAPHICS_INDEXED_METHOD, Kind::List},
    {"Downsample.Mono.Use", L"Graphics", IDC_GRAPHICS_MONO_USE, Kind::Switch},
    {"Downsample.Mono.DPI", L"Graphics", IDC_GRAPHICS_MONO_DPI, Kind::Text},
    {"Downsample.Mono.Method", L"Graphics", IDC_GRAPHICS_MONO_METHOD, Kind::List},
    {"Convert.Color.To", L"Graphics", IDC_GRAPHICS_CONVERT_COLOR, Kind::List},
    {"Convert.Color.Dither", L"Graphics", IDC_GRAPHICS_DITHER_COLOR, Kind::Switch},
    {"Convert.Indexed.To", L"Graphics", IDC_GRAPHICS_CONVERT_INDEXED, Kind::List},
    {"Convert.Indexed.Dither", L"Graphics", IDC_GRAPHICS_DITHER_INDEXED, Kind::Switch},
    {"Convert.Drawing.To", L"Graphics", IDC_GRAPHICS_CONVERT_DRAWING, Kind::List},
    {"Convert.Drawing.Threshold", L"Graphics", IDC_GRAPHICS_THRESHOLD, Kind::Text},
    {"Fonts.Embedd.All", L"Fonts", IDC_FONTS_EMBED_ALL, Kind::Switch},
    {"Fonts.Embedd.Protected", L"Fonts", IDC_FONTS_EMBED_PROTECTED, Kind::Switch},
    {"Fonts.Embedd.Use_Always", L"Fonts", IDC_FONTS_USE_ALWAYS, Kind::Switch},
    {"Fonts.Embedd.Use_Never", L"Fonts", IDC_FONTS_USE_NEVER, Kind::Switch},
    {"Watermarks.Print", L"Watermarks", IDC_WATERMARKS_PRINT, Kind::Switch},
    {"Links.Border.Style", L"Links", IDC_LINKS_STYLE, Kind::List},
    {"Links.Border.Type", L"Links", IDC_LINKS_TYPE, Kind::List},
    {"Links.Analize", L"Links", IDC_LINKS_ANALIZE, Kind::Switch},
    {"Links.Files.Analize", L"Links", IDC_LINKS_FILES_ANALIZE, Kind::Switch},
    {"Links.Files.Check", L"Links", IDC_LINKS_FILES_CHECK, Kind::Switch},
    {"Bookmarks.Print", L"Bookmarks", IDC_BOOKMARKS_PRINT, Kind::Switch},
    {"Bookmarks.Multiline", L"Bookmarks", IDC_BOOKMARKS_MULTILINE, Kind::Switch},
    {"Bookmarks.MatchLevel", L"Bookmarks", IDC_BOOKMARKS_MATCH_LEVEL, Kind::Switch},
    {"Info.Use", L"Document Info", IDC_DOCINFO_USE, Kind::Switch},
    {"Info.Author", L"Document Info", IDC_DOCINFO_AUTHOR, Kind::Text},
    {"Info.Creator", L"Document Info", IDC_DOCINFO_CREATOR, Kind::Text},
    {"Info.Keywords", L"Document Info", IDC_DOCINFO_KEYWORDS, Kind::Text},
    {"Info.Subject", L"Document Info", IDC_DOCINFO_SUBJECT, Kind::Text},
    {"Info.Title", L"Document Info", IDC_DOCINFO_TITLE, Kind::Text},
    {"Save.UseSameFolder", L"Save", IDC_SAVE_SAME_FOLDER, Kind::Switch},
    {"Save.FileName", L"Save", IDC_SAVE_FILE_NAME, Kind::Text},
    {"Save.Folder", L"Save", IDC_SAVE_FOLDER, Kind::Text},
    {"Save.WhenExists", L"Save", IDC_SAVE_EXISTS, Kind::List},
    {"Save.AutoNumber.Start", L"Save", IDC_SAVE_START, Kind::Text},
    {"Save.AutoNumber.Digits", L"Save", IDC_SAVE_DIGITS, Kind::Text},
    {"Email.Type", L"e-Mail", IDC_EMAIL_METHOD, Kind::List},
    {"Email.ZIP", L"e-Mail", IDC_EMAIL_ZIP, Kind::Switch},
    {"Email.From", L"e-Mail", IDC_EMAIL_FROM, Kind::Text},
    {"Email.To", L"e-Mail", IDC_EMAIL_TO, Kind::Text},
    {"Email.CC", L"e-Mail", IDC_EMAIL_CC, Kind::Text},
    {"Email.Subject", L"e-Mail", IDC_EMAIL_SUBJECT, Kind::Text},
    {"Email.SMTP.Address", L"e-Mail", IDC_EMAIL_SERVER, Kind::Text},
    {"Optimization.BlendMode", L"Optimization", IDC_OPTIMIZATION_BLEND_MODE, Kind::List},
    {"Optimization.DeTessellation", L"Optimization", IDC_OPTIMIZATION_DETESSELLATION, Kind::List},
    {"Optimization.NoTransparency", L"Optimization", IDC_OPTIMIZATION_NO_TRANSPARENCY, Kind::Switch},
    {"Optimization.NoMaskedImages", L"Optimization", IDC_OPTIMIZATION_NO_MASKED_IMAGES, Kind::Switch},
    {"Optimization.OptimizeImages", L"Optimization", IDC_OPTIMIZATION_OPTIMIZE_IMAGES, Kind::Switch},
    {"Overlay.Enable", L"Overlay", IDC_OVERLAY_ENABLE, Kind::Switch},
    {"Overlay.File", L"Overlay", IDC_OVERLAY_FILE, Kind::Text},
    {"Overlay.Foreground", L"Overlay", IDC_OVERLAY_FOREGROUND, Kind::Switch},
    {"Overlay.KeepAspect", L"Overlay", IDC_OVERLAY_KEEP_ASPECT, Kind::Switch},
};

std::wstring TextOf(const LiveWindow& page, const Shown& shown) {
    switch (shown.kind) {
        case Kind::Switch:
            return page.IsChecked(shown.id) ? L"On" : L"Off";
        case Kind::List:
            return page.Selected(shown.id);
        default:
            return page.Text(shown.id);
    }
}

// Every page stores what its controls hold once Apply is enabled and OK is pressed: that has to be what was
// loaded.
int StoreAsShown(LiveDialog& dialog) {
    const PrinterSettings before = dialog.Record();
    const LiveWindow page = dialog.Page(L"Watermarks");
    for (int clicks = 0; clicks != 2; ++clicks) page.Click(IDC_WATERMARKS_PRINT);
    if (dialog.Ok() != 1) throw std::runtime_error("the dialog does not store");
    const std::vector<Difference> changes = Differences(DocumentOf(before), DocumentOf(dialog.Record()));
    for (const Difference& change : changes) {
        const std::string name(change.setting->name);
        std::fprintf(stderr, "%s is held as something else\n", name.c_str());
    }
    return changes.empty() ? 0 : 1;
}

int TryDialog() {
    LiveDialog dialog({.prepare = [](IPdfPrinterPreferences& object) {
        object.InitFromRegistry(AllPages, AutomationString(L"").get());
    }});
    for (const Shown& shown : kShown) {
        const std::string text = Utf8FromWide(TextOf(dialog.Page(shown.page), shown));
        std::printf("%s=%s\n", shown.setting, text.c_str());
    }
    return StoreAsShown(dialog);
}

// --- hives of many users

class Hive {
  public:
    explicit Hive(const std::wstring& name) {
        Check(RegCreateKeyExW(HKEY_USERS, name.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_hive,
                              nullptr));
        Check(RegOverridePredefKey(HKEY_CURRENT_USER, m_hive));
    }
    ~Hive() {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(m_hive);
    }
    Hive(const Hive&) = delete;
    Hive& operator=(const Hive&) = delete;

    // As the system stores what a policy says: texts whole, whatever the code page.
    static void Apply(const Document& document) {
        HKEY key = nullptr;
        Check(RegCreateKeyExA(HKEY_CURRENT_USER, kRegistryRoot, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                              nullptr));
        for (const auto& [setting, value] : document) {
            const std::wstring name = WideFromUtf8(setting->name);
            if (const auto* const number = std::get_if<std::int32_t>(&value)) {
                Check(RegSetValueExW(key, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(number),
                                     sizeof *number));
            } else {
                const auto& text = std::get<std::wstring>(value);
                Check(RegSetValueExW(key, name.c_str(), 0, REG_SZ,
                                     reinterpret_cast<const BYTE*>(text.c_str()),
                                     static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
            }
        }
        RegCloseKey(key);
    }

  private:
    static void Check(LSTATUS status) {
        if (status != ERROR_SUCCESS) throw std::runtime_error("the registry refuses a hive");
    }

    HKEY m_hive = nullptr;
};

std::vector<std::wstring> RegistryFiles(const std::wstring& folder) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    HANDLE search = FindFirstFileW((folder + L"\\*.reg").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do names.emplace_back(found.cFileName);
    while (FindNextFileW(search, &found));
    FindClose(search);
    std::ranges::sort(names);
    return names;
}

std::wstring HiveOf(const std::wstring& file) {
    return file.substr(0, file.rfind(L'.'));
}

double Milliseconds() {
    LARGE_INTEGER now{};
    LARGE_INTEGER frequency{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// What is not right in the user's hive, in words; nothing when all is.
std::string Complaint(const Document& document, IPdfPrinterPreferences& object) {
    for (const Damage& damage : FindDamage(L""))
        return std::string(damage.setting->name) + ": " + damage.reason;
    object.InitFromRegistry(AllPages, AutomationString(L"").get());
    for (const Difference& difference : ChangesBy(document, DocumentOf(RecordOf(object))))
        return std::string(difference.setting->name) + " reads as something else";
    return {};
}

int TryHives(const std::wstring& folder) {
    const ComApartment apartment;
    const LoadedModule module;
    int wrong = 0;
    const std::vector<std::wstring> names = RegistryFiles(folder);
    if (names.empty()) throw std::runtime_error("there are no hives");
    for (const std::wstring& name : names) {
        const double begin = Milliseconds();
        const DocumentFile file = ReadDocumentFile(folder + L"\\" + name, Strictness::Strict);
        const Hive hive(HiveOf(name));
        Hive::Apply(file.document);
        const auto object = module.CreatePreferences();
        const std::string complaint =
            file.faults.empty() ? Complaint(file.document, *object) : file.faults[0].reason;
        if (!complaint.empty()) {
            std::fprintf(stderr, "%s: %s\n", Utf8FromWide(name).c_str(), complaint.c_str());
            ++wrong;
        }
        std::printf("%s %.3f\n", Utf8FromWide(name).c_str(), Milliseconds() - begin);
    }
    // All of them are there until then, as on a server that many users are logged on to.
    for (const std::wstring& name : names) RegDeleteTreeW(HKEY_USERS, HiveOf(name).c_str());
    return wrong == 0 ? 0 : 1;
}

}  // namespace
}  // namespace vmk::test

int wmain(int count, wchar_t** words) {
    const std::wstring_view verb = count > 1 ? words[1] : L"";
    try {
        if (verb == L"dialog" && count == 2) return vmk::test::TryDialog();
        if (verb == L"hives" && count == 3) return vmk::test::TryHives(words[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
    std::fprintf(stderr, "fleet_probe dialog | hives FOLDER\n");
    return 2;
}
