#include "tests/chaos/pages_contract.h"

#include <windows.h>
// commctrl.h needs windows.h before it.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cwchar>
#include <map>
#include <numeric>
#include <set>
#include <span>
#include <string_view>

#include "resources/ids/bookmarks.h"
#include "resources/ids/compression.h"
#include "resources/ids/digital_signature.h"
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
#include "resources/ids/security.h"
#include "resources/ids/smtp.h"
#include "resources/ids/watermarks.h"
#include "settings/groups.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

using Number = std::int32_t;

constexpr PageSet kMailServer = 1U << 31;  // beside the bits of the pages

// Visits the members of a record by the names under which they are stored, the parts of the special forms
// under names of their own.
struct Members {
    std::map<std::string_view, Number*> numbers;
    std::map<std::string_view, std::wstring*> texts;

    void operator()(const char* name, Number& number) { numbers[name] = &number; }
    void operator()(const char* name, std::wstring& text) { texts[name] = &text; }
    void operator()(const char*, RunApplication& run) {
        numbers["run"] = &run.Use;
        texts["program"] = &run.Path;
    }
    void operator()(const char*, SwapToDisk& swap) { numbers["swap"] = &swap.Enabled; }
};

Members MembersOf(PrinterSettings& record) {
    Members members;
    WalkFields(page_bit::kAllPages, members, record);
    return members;
}

struct Control {
    PageSet page;
    std::string_view name;
    UINT id;
};

// Checked by anything but 0.
constexpr Control kBoxes[] = {
    {page_bit::kGeneral, "General.VP.HideToolbars", IDC_GENERAL_HIDE_TOOLBARS},
    {page_bit::kGeneral, "General.VP.HideUI", IDC_GENERAL_HIDE_UI},
    {page_bit::kGeneral, "General.VP.Fit", IDC_GENERAL_FIT_WINDOW},
    {page_bit::kGeneral, "General.VP.Center", IDC_GENERAL_CENTER_WINDOW},
    {page_bit::kGeneral, "General.VP.ShowTitle", IDC_GENERAL_SHOW_TITLE},
    {page_bit::kGeneral, "General.VP.HideMenubar", IDC_GENERAL_HIDE_MENUBAR},
    {page_bit::kCompression, "Compression.Graphics", IDC_COMPRESSION_GRAPHICS},
    {page_bit::kCompression, "Compression.ASCII", IDC_COMPRESSION_ASCII},
    {page_bit::kCompression, "Compression.Text", IDC_COMPRESSION_TEXT},
    {page_bit::kGraphics, "Downsample.Color.Use", IDC_GRAPHICS_COLOR_USE},
    {page_bit::kGraphics, "Downsample.Indexed.Use", IDC_GRAPHICS_INDEXED_USE},
    {page_bit::kGraphics, "Downsample.Mono.Use", IDC_GRAPHICS_MONO_USE},
    {page_bit::kGraphics, "Convert.Color.Dither", IDC_GRAPHICS_DITHER_COLOR},
    {page_bit::kGraphics, "Convert.Indexed.Dither", IDC_GRAPHICS_DITHER_INDEXED},
    {page_bit::kFonts, "Fonts.Embedd.All", IDC_FONTS_EMBED_ALL},
    {page_bit::kFonts, "Fonts.Embedd.Protected", IDC_FONTS_EMBED_PROTECTED},
    {page_bit::kFonts, "Fonts.Embedd.Use_Always", IDC_FONTS_USE_ALWAYS},
    {page_bit::kFonts, "Fonts.Embedd.Use_Never", IDC_FONTS_USE_NEVER},
    {page_bit::kWatermarks, "Watermarks.Print", IDC_WATERMARKS_PRINT},
    {page_bit::kSecurity, "Security.Use", IDC_SECURITY_USE},
    {page_bit::kSecurity, "Security.40.AllowPrinting", IDC_SECURITY_40_PRINTING},
    {page_bit::kSecurity, "Security.40.AllowChanging", IDC_SECURITY_40_CHANGING},
    {page_bit::kSecurity, "Security.40.AllowCopying", IDC_SECURITY_40_COPYING},
    {page_bit::kSecurity, "Security.40.AllowComments", IDC_SECURITY_40_COMMENTS},
    {page_bit::kSecurity, "Security.128.ContentAccess", IDC_SECURITY_128_ACCESS},
    {page_bit::kSecurity, "Security.128.AllowCopying", IDC_SECURITY_128_COPYING},
    {page_bit::kDigitalSign, "Security.Digisig.Enable", IDC_SIGNATURE_ENABLE},
    {page_bit::kLinks, "Links.Analize", IDC_LINKS_ANALIZE},
    {page_bit::kLinks, "Links.Files.Analize", IDC_LINKS_FILES_ANALIZE},
    {page_bit::kLinks, "Links.Files.Check", IDC_LINKS_FILES_CHECK},
    {page_bit::kBookmarks, "Bookmarks.Print", IDC_BOOKMARKS_PRINT},
    {page_bit::kBookmarks, "Bookmarks.Multiline", IDC_BOOKMARKS_MULTILINE},
    {page_bit::kBookmarks, "Bookmarks.MatchLevel", IDC_BOOKMARKS_MATCH_LEVEL},
    {page_bit::kDocumentInfo, "Info.Use", IDC_DOCINFO_USE},
    {page_bit::kSave, "Save.UseSameFolder", IDC_SAVE_SAME_FOLDER},
    {page_bit::kSave, "Save.ShowSaveDialog", IDC_SAVE_ASK},
    {page_bit::kSave, "run", IDC_SAVE_RUN},
    {page_bit::kEmail, "Email.ZIP", IDC_EMAIL_ZIP},
    {kMailServer, "Email.SMTP.RequiresAuthentication", IDC_SMTP_AUTHENTICATION},
    {kMailServer, "Email.STMP.UseSSL", IDC_SMTP_SECURE},
    {page_bit::kOptimization, "Optimization.NoTransparency", IDC_OPTIMIZATION_NO_TRANSPARENCY},
    {page_bit::kOptimization, "Optimization.NoMaskedImages", IDC_OPTIMIZATION_NO_MASKED_IMAGES},
    {page_bit::kOptimization, "Optimization.OptimizeImages", IDC_OPTIMIZATION_OPTIMIZE_IMAGES},
    {page_bit::kOptimization, "swap", IDC_OPTIMIZATION_SWAP},
    {page_bit::kOverlay, "Overlay.Enable", IDC_OVERLAY_ENABLE},
    {page_bit::kOverlay, "Overlay.Foreground", IDC_OVERLAY_FOREGROUND},
    {page_bit::kOverlay, "Overlay.KeepAspect", IDC_OVERLAY_KEEP_ASPECT},
};

constexpr Control kTexts[] = {
    {page_bit::kSecurity, "Security.UserPwd", IDC_SECURITY_USER_PASSWORD},
    {page_bit::kSecurity, "Security.OwnerPwd", IDC_SECURITY_OWNER_PASSWORD},
    {page_bit::kDigitalSign, "Security.Digisig.PFXFile", IDC_SIGNATURE_FILE},
    {page_bit::kDigitalSign, "Security.Digisig.PFXPassword", IDC_SIGNATURE_PASSWORD},
    {page_bit::kDigitalSign, "Security.Digisig.Reason", IDC_SIGNATURE_REASON},
    {page_bit::kDigitalSign, "Security.Digisig.Location", IDC_SIGNATURE_LOCATION},
    {page_bit::kDigitalSign, "Security.Digisig.ContactInfo", IDC_SIGNATURE_CONTACT},
    {page_bit::kDigitalSign, "Security.Digisig.Image", IDC_SIGNATURE_IMAGE},
    {page_bit::kDocumentInfo, "Info.Title", IDC_DOCINFO_TITLE},
    {page_bit::kDocumentInfo, "Info.Subject", IDC_DOCINFO_SUBJECT},
    {page_bit::kDocumentInfo, "Info.Author", IDC_DOCINFO_AUTHOR},
    {page_bit::kDocumentInfo, "Info.Keywords", IDC_DOCINFO_KEYWORDS},
    {page_bit::kDocumentInfo, "Info.Creator", IDC_DOCINFO_CREATOR},
    {page_bit::kSave, "Save.Folder", IDC_SAVE_FOLDER},
    {page_bit::kSave, "Save.FileName", IDC_SAVE_FILE_NAME},
    {page_bit::kSave, "program", IDC_SAVE_APP},
    {page_bit::kSave, "Save.App.Params", IDC_SAVE_PARAMETERS},
    {page_bit::kEmail, "Email.From", IDC_EMAIL_FROM},
    {page_bit::kEmail, "Email.To", IDC_EMAIL_TO},
    {page_bit::kEmail, "Email.CC", IDC_EMAIL_CC},
    {page_bit::kEmail, "Email.Subject", IDC_EMAIL_SUBJECT},
    {page_bit::kEmail, "Email.Content", IDC_EMAIL_CONTENT},
    {page_bit::kEmail, "Email.SMTP.Address", IDC_EMAIL_SERVER},
    {kMailServer, "Email.SMTP.Address", IDC_SMTP_ADDRESS},
    {kMailServer, "Email.SMTP.UserName", IDC_SMTP_USER_NAME},
    {kMailServer, "Email.SMTP.Password", IDC_SMTP_PASSWORD},
    {page_bit::kOverlay, "Overlay.File", IDC_OVERLAY_FILE},
    {page_bit::kOverlay, "Overlay.Password", IDC_OVERLAY_PASSWORD},
};

// As many decimals as are shown; those with some are stored in tenths.
struct NumberBox : Control {
    int decimals = 0;
};
constexpr NumberBox kNumberBoxes[] = {
    {{page_bit::kCompression, "Compression.Color.JPEGQuality", IDC_COMPRESSION_QUALITY}},
    {{page_bit::kGraphics, "Downsample.Color.DPI", IDC_GRAPHICS_COLOR_DPI}},
    {{page_bit::kGraphics, "Downsample.Indexed.DPI", IDC_GRAPHICS_INDEXED_DPI}},
    {{page_bit::kGraphics, "Downsample.Mono.DPI", IDC_GRAPHICS_MONO_DPI}},
    {{page_bit::kGraphics, "Convert.Drawing.Threshold", IDC_GRAPHICS_THRESHOLD}},
    {{page_bit::kDigitalSign, "Security.Digisig.Page", IDC_SIGNATURE_PAGE}},
    {{page_bit::kDigitalSign, "Security.Digisig.Left", IDC_SIGNATURE_LEFT}, 3},
    {{page_bit::kDigitalSign, "Security.Digisig.Top", IDC_SIGNATURE_TOP}, 3},
    {{page_bit::kDigitalSign, "Security.Digisig.Width", IDC_SIGNATURE_WIDTH}, 3},
    {{page_bit::kDigitalSign, "Security.Digisig.Height", IDC_SIGNATURE_HEIGHT}, 3},
    {{page_bit::kLinks, "Links.Border.Width", IDC_LINKS_WIDTH}, 1},
    {{page_bit::kSave, "Save.AutoNumber.Start", IDC_SAVE_START}},
    {{page_bit::kSave, "Save.AutoNumber.Digits", IDC_SAVE_DIGITS}},
    {{kMailServer, "Email.SMTP.Port", IDC_SMTP_PORT}},
};

// The values of a list's items; without a number most lists have 0, 1, 2 and so on.
constexpr auto kCounted = [] {
    std::array<Number, 12> numbers{};
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}();
constexpr std::span<const Number> FirstOf(std::size_t count) {
    return std::span(kCounted).first(count);
}
constexpr Number kCounts[] = {1, 2, 4, 8, 9, 16};
constexpr Number kLevels[] = {40, 128};
constexpr Number kGraphicKinds[] = {0, 16, 32};
constexpr Number kGraphicBits = 48;

struct List : Control {
    std::span<const Number> values;
};
constexpr List kLists[] = {
    {{page_bit::kPaper, "Paper.Nup", IDC_PAPER_COUNT}, kCounts},
    {{page_bit::kGeneral, "General.PageLayout", IDC_GENERAL_PAGE_LAYOUT}, FirstOf(4)},
    {{page_bit::kGeneral, "General.PageMode", IDC_GENERAL_PAGE_MODE}, FirstOf(4)},
    {{page_bit::kCompression, "Compression.Color.Method", IDC_COMPRESSION_COLOR_METHOD}, FirstOf(7)},
    {{page_bit::kCompression, "Compression.Indexed.Method", IDC_COMPRESSION_INDEXED_METHOD}, FirstOf(5)},
    {{page_bit::kCompression, "Compression.Mono.Method", IDC_COMPRESSION_MONO_METHOD}, FirstOf(7)},
    {{page_bit::kGraphics, "Downsample.Color.Method", IDC_GRAPHICS_COLOR_METHOD}, FirstOf(3)},
    {{page_bit::kGraphics, "Downsample.Indexed.Method", IDC_GRAPHICS_INDEXED_METHOD}, FirstOf(3)},
    {{page_bit::kGraphics, "Downsample.Mono.Method", IDC_GRAPHICS_MONO_METHOD}, FirstOf(3)},
    {{page_bit::kGraphics, "Convert.Color.To", IDC_GRAPHICS_CONVERT_COLOR}, FirstOf(3)},
    {{page_bit::kGraphics, "Convert.Indexed.To", IDC_GRAPHICS_CONVERT_INDEXED}, FirstOf(3)},
    {{page_bit::kGraphics, "Convert.Drawing.To", IDC_GRAPHICS_CONVERT_DRAWING}, FirstOf(3)},
    {{page_bit::kSecurity, "Security.Level", IDC_SECURITY_LEVEL}, kLevels},
    {{page_bit::kSecurity, "Security.128.Changes", IDC_SECURITY_128_CHANGES}, FirstOf(5)},
    {{page_bit::kSecurity, "Security.128.Printing", IDC_SECURITY_128_PRINTING}, FirstOf(3)},
    {{page_bit::kLinks, "Links.Border.Type", IDC_LINKS_TYPE}, FirstOf(3)},
    {{page_bit::kLinks, "Links.Border.Style", IDC_LINKS_STYLE}, FirstOf(3)},
    {{page_bit::kSave, "Save.WhenExists", IDC_SAVE_EXISTS}, FirstOf(5)},
    {{page_bit::kEmail, "Email.Type", IDC_EMAIL_METHOD}, FirstOf(4)},
    {{page_bit::kOptimization, "Optimization.BlendMode", IDC_OPTIMIZATION_BLEND_MODE}, FirstOf(12)},
    {{page_bit::kOptimization, "Optimization.DeTessellation", IDC_OPTIMIZATION_DETESSELLATION}, FirstOf(2)},
};

// Radio buttons in the order of their numbers, and which of them stands for all other numbers.
struct Choice {
    PageSet page;
    std::string_view name;
    std::span<const UINT> ids;
    Number first = 0;
    int others = -1;
};
constexpr UINT kVersions[] = {IDC_GENERAL_VERSION_13, IDC_GENERAL_VERSION_14, IDC_GENERAL_VERSION_15,
                              IDC_GENERAL_VERSION_16};
constexpr UINT kRepeats[] = {IDC_OVERLAY_REPEAT_NONE, IDC_OVERLAY_REPEAT_LAST, IDC_OVERLAY_REPEAT_ALL};
constexpr UINT kColumns[] = {IDC_OVERLAY_LEFT, IDC_OVERLAY_CENTER, IDC_OVERLAY_RIGHT};
constexpr UINT kRows[] = {IDC_OVERLAY_TOP, IDC_OVERLAY_MIDDLE, IDC_OVERLAY_BOTTOM};
constexpr Choice kChoices[] = {
    {.page = page_bit::kGeneral, .name = "General.PDFSpec", .ids = kVersions, .first = 3},
    {.page = page_bit::kOverlay, .name = "Overlay.Repeat", .ids = kRepeats, .others = 2},
    {.page = page_bit::kOverlay, .name = "Overlay.HAlign", .ids = kColumns, .others = 1},
    {.page = page_bit::kOverlay, .name = "Overlay.VAlign", .ids = kRows, .others = 1},
};

constexpr std::pair<UINT, Number> kSignatureTexts[] = {
    {IDC_SIGNATURE_SHOW_NAME, 0x100},
    {IDC_SIGNATURE_SHOW_DATE, 0x200},
    {IDC_SIGNATURE_SHOW_LOCATION, 0x400},
    {IDC_SIGNATURE_SHOW_REASON, 0x800},
    {IDC_SIGNATURE_SHOW_DISTINGUISHED_NAME, 0x1000},
    {IDC_SIGNATURE_SHOW_LABELS, 0x8000},
};

int IndexOf(std::span<const Number> values, Number value) {
    const auto found = std::ranges::find(values, value);
    return found == values.end() ? -1 : static_cast<int>(found - values.begin());
}

// What a list of these values stores for a number.
Number Offered(std::span<const Number> values, Number value) {
    return IndexOf(values, value) < 0 ? -1 : value;
}

std::wstring Shown(Number number, int decimals) {
    if (decimals == 0) return std::to_wstring(number);
    wchar_t text[32];
    std::swprintf(text, std::size(text), L"%1.*f", decimals, number / 10.0);
    return text;
}

std::string Ascii(const std::wstring& text) {
    constexpr std::size_t kLongest = 24;
    std::string ascii;
    for (const wchar_t unit : text.substr(0, kLongest))
        ascii += unit >= L' ' && unit < 0x7F ? static_cast<char>(unit) : '?';
    return "\"" + ascii + "\" (" + std::to_string(text.size()) + ")";
}

std::wstring TextOf(HWND control) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return text;
}

// One page on screen, with the record that it is to show.
class Screen {
  public:
    Screen(HWND window, PageSet page, const PrinterSettings& record, Findings& findings)
        : m_window(window),
          m_page(page),
          m_record(record),
          m_members(MembersOf(m_record)),
          m_findings(findings) {}

    void CheckTables() const {
        for (const Control& box : kBoxes)
            if (box.page == m_page) IsChecked(box.name, box.id, Get(box.name) != 0);
        for (const Control& box : kTexts)
            if (box.page == m_page) HasText(box.name, box.id, *m_members.texts.at(box.name));
        for (const NumberBox& box : kNumberBoxes)
            if (box.page == m_page) HasText(box.name, box.id, Shown(Get(box.name), box.decimals));
        for (const List& list : kLists)
            if (list.page == m_page) HasSelected(list.name, list.id, IndexOf(list.values, Get(list.name)));
        for (const Choice& choice : kChoices)
            if (choice.page == m_page) Check(choice);
    }

    void IsChecked(std::string_view name, UINT id, bool expected) const {
        const bool checked = SendMessageW(Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED;
        if (checked != expected) Find(name, id, checked ? "is checked" : "is not checked");
    }
    void IsVisible(std::string_view name, UINT id, bool expected) const {
        // The page itself need not be the one on screen.
        bool visible = true;
        for (HWND window = Item(id); window && window != m_window; window = GetParent(window))
            visible = visible && (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE);
        if (visible != expected) Find(name, id, visible ? "is visible" : "is hidden");
    }
    void HasText(std::string_view name, UINT id, const std::wstring& expected) const {
        const std::wstring text = TextOf(Item(id));
        if (text != expected) Find(name, id, "shows " + Ascii(text) + ", not " + Ascii(expected));
    }
    void HasSelected(std::string_view name, UINT id, int expected) const {
        const auto selected = SendMessageW(Item(id), CB_GETCURSEL, 0, 0);
        if (selected != expected)
            Find(name, id,
                 "has item " + std::to_string(selected) + " selected, not " + std::to_string(expected));
    }
    void HasColor(std::string_view name, UINT id, COLORREF expected) const {
        const auto bitmap = reinterpret_cast<HBITMAP>(SendMessageW(Item(id), BM_GETIMAGE, IMAGE_BITMAP, 0));
        HDC const context = CreateCompatibleDC(nullptr);
        const HGDIOBJ previous = SelectObject(context, bitmap);
        const COLORREF color = GetPixel(context, 1, 1);
        SelectObject(context, previous);
        DeleteDC(context);
        if (color != expected) Find(name, id, "has the colour " + std::to_string(color));
    }
    void HasFaces(std::string_view name, UINT id, const std::multiset<std::wstring>& expected) const {
        std::multiset<std::wstring> faces;
        const auto count = SendMessageW(Item(id), LVM_GETITEMCOUNT, 0, 0);
        for (LRESULT index = 0; index < count; ++index) {
            std::array<wchar_t, 260> text{};
            LVITEMW item{};
            item.pszText = text.data();
            item.cchTextMax = static_cast<int>(text.size());
            SendMessageW(Item(id), LVM_GETITEMTEXTW, static_cast<WPARAM>(index),
                         reinterpret_cast<LPARAM>(&item));
            faces.emplace(text.data());
        }
        if (faces != expected)
            Find(name, id,
                 "lists " + std::to_string(faces.size()) + " faces, not " + std::to_string(expected.size()));
    }

  private:
    Number Get(std::string_view name) const { return *m_members.numbers.at(name); }

    void Check(const Choice& choice) const {
        Number wanted = Get(choice.name) - choice.first;
        if (wanted < 0 || wanted >= static_cast<Number>(choice.ids.size())) wanted = choice.others;
        for (std::size_t index = 0; index < choice.ids.size(); ++index)
            IsChecked(choice.name, choice.ids[index], wanted == static_cast<Number>(index));
    }

    HWND Item(UINT id) const {
        return FindDescendant(m_window,
                              [id](HWND control) { return GetDlgCtrlID(control) == static_cast<int>(id); });
    }
    void Find(std::string_view name, UINT id, const std::string& what) const {
        m_findings.push_back(std::string(name) + ": control " + std::to_string(id) + " " + what);
    }

    HWND m_window;
    PageSet m_page;
    PrinterSettings m_record;
    Members m_members;
    Findings& m_findings;
};

// The faces that the system has, in the order in which it names them.
std::vector<std::wstring> InstalledFaces() {
    std::vector<std::wstring> faces;
    LOGFONTW wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    const FONTENUMPROCW note = [](const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM parameter) -> int {
        reinterpret_cast<std::vector<std::wstring>*>(parameter)->emplace_back(font->lfFaceName);
        return 1;
    };
    HDC const screen = GetDC(nullptr);
    EnumFontFamiliesExW(screen, &wanted, note, reinterpret_cast<LPARAM>(&faces), 0);
    ReleaseDC(nullptr, screen);
    return faces;
}

// A face that is there is in the list as often as the text names it.
std::multiset<std::wstring> FacesOf(const std::wstring& text, const std::vector<std::wstring>& installed) {
    std::multiset<std::wstring> faces;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(L';', begin), text.size());
        const std::wstring face = text.substr(begin, end - begin);
        if (std::ranges::find(installed, face) != installed.end()) faces.insert(face);
        begin = end + 1;
    }
    return faces;
}

std::wstring Joined(const std::multiset<std::wstring>& faces) {
    std::wstring text;
    for (const std::wstring& face : faces) text += (text.empty() ? L"" : L";") + face;
    return text;
}

void CheckOrders(const Screen& screen, const PrinterSettings::PaperGroup& paper) {
    const bool isKnown = paper.Nup == 6 || IndexOf(kCounts, paper.Nup) >= 0;
    const bool ofTwo = paper.Nup == 2;
    const bool ofMore = isKnown && paper.Nup > 2;
    screen.IsVisible("Paper.NupOrder", IDC_PAPER_ORDER_OF_TWO, ofTwo || !isKnown);
    screen.IsVisible("Paper.NupOrder", IDC_PAPER_ORDER_OF_MORE, ofMore || !isKnown);
    if (ofTwo)
        screen.HasSelected("Paper.NupOrder", IDC_PAPER_ORDER_OF_TWO, IndexOf(FirstOf(2), paper.NupOrder));
    if (ofMore)
        screen.HasSelected("Paper.NupOrder", IDC_PAPER_ORDER_OF_MORE, IndexOf(FirstOf(4), paper.NupOrder));
}

void CheckSecurity(const Screen& screen, const PrinterSettings::SecurityGroup& security) {
    screen.IsChecked("Security.UserPwd", IDC_SECURITY_USE_USER_PASSWORD, !security.UserPwd.empty());
    screen.IsChecked("Security.OwnerPwd", IDC_SECURITY_USE_OWNER_PASSWORD, !security.OwnerPwd.empty());
    const bool isUsed = security.Use != 0;
    screen.IsVisible("Security.Level", IDC_SECURITY_40_PRINTING, isUsed && security.Level == 40);
    screen.IsVisible("Security.Level", IDC_SECURITY_128_PRINTING, isUsed && security.Level != 40);
}

void CheckSignature(const Screen& screen, Number flags) {
    screen.HasSelected("Security.Digisig.Flags", IDC_SIGNATURE_GRAPHIC,
                       IndexOf(kGraphicKinds, flags & kGraphicBits));
    for (const auto& [id, bit] : kSignatureTexts)
        screen.IsChecked("Security.Digisig.Flags", id, (flags & bit) != 0);
}

void CheckSave(const Screen& screen, const PrinterSettings::SaveGroup& save) {
    screen.IsChecked("Save.ShowSaveDialog", IDC_SAVE_PREDEFINED, save.ShowSaveDialog == 0);
    screen.IsChecked("Save.App.Run", IDC_SAVE_DEFAULT_APP, save.App.Run.WithoutPath != 0);
    screen.IsChecked("Save.App.Run", IDC_SAVE_GIVEN_APP, save.App.Run.WithoutPath == 0);
}

Number StoredFlags(Number flags) {
    // Of a kind that the list does not have both bits are set: they stay.
    Number stored = flags & kGraphicBits;
    for (const auto& [id, bit] : kSignatureTexts) stored |= flags & bit;
    return stored;
}

void StoreOrder(PrinterSettings::PaperGroup& paper) {
    // The count is what the list has given by now.
    if (paper.Nup == 2) paper.NupOrder = Offered(FirstOf(2), paper.NupOrder);
    if (paper.Nup > 2) paper.NupOrder = Offered(FirstOf(4), paper.NupOrder);
}

}  // namespace

void CheckPage(HWND page, PageSet bit, const PrinterSettings& record, Findings& findings) {
    const Screen screen(page, bit, record, findings);
    screen.CheckTables();
    switch (bit) {
        case page_bit::kPaper:
            CheckOrders(screen, record.Paper);
            break;
        case page_bit::kFonts: {
            const std::vector<std::wstring> installed = InstalledFaces();
            screen.HasFaces("Fonts.Embedd.Always", IDC_FONTS_ALWAYS,
                            FacesOf(record.Fonts.Embedd.Always, installed));
            screen.HasFaces("Fonts.Embedd.Never", IDC_FONTS_NEVER,
                            FacesOf(record.Fonts.Embedd.Never, installed));
            break;
        }
        case page_bit::kSecurity:
            CheckSecurity(screen, record.Security);
            break;
        case page_bit::kDigitalSign:
            CheckSignature(screen, record.Security.Digisig.Flags);
            break;
        case page_bit::kLinks:
            if ((record.Links.Border.Color & ~0xFFFFFF) == 0)
                screen.HasColor("Links.Border.Color", IDC_LINKS_COLOR,
                                static_cast<COLORREF>(record.Links.Border.Color));
            break;
        case page_bit::kSave:
            CheckSave(screen, record.Save);
            break;
        case page_bit::kOptimization:
            // 0 is the mark of no swapping and no threshold.
            screen.HasText(
                "Optimization.SwapToDisk", IDC_OPTIMIZATION_SWAP_THRESHOLD,
                Shown(record.Optimization.SwapToDisk.Megabytes ? record.Optimization.SwapToDisk.Megabytes : 1,
                      0));
            break;
        case page_bit::kOverlay:
            screen.IsChecked("Overlay.Fit", IDC_OVERLAY_FIT,
                             record.Overlay.Enable != 0 || record.Overlay.Fit != 0);
            break;
        default:
            break;
    }
}

void CheckMailServer(HWND window, const PrinterSettings& record, Findings& findings) {
    Screen(window, kMailServer, record, findings).CheckTables();
}

PrinterSettings StoredByPage(PageSet bit, const PrinterSettings& record) {
    PrinterSettings stored = record;
    const Members members = MembersOf(stored);
    for (const Control& box : kBoxes)
        if (box.page == bit) *members.numbers.at(box.name) = *members.numbers.at(box.name) != 0 ? 1 : 0;
    for (const List& list : kLists)
        if (list.page == bit)
            *members.numbers.at(list.name) = Offered(list.values, *members.numbers.at(list.name));
    switch (bit) {
        case page_bit::kPaper:
            StoreOrder(stored.Paper);
            break;
        case page_bit::kFonts: {
            const std::vector<std::wstring> installed = InstalledFaces();
            auto& fonts = stored.Fonts.Embedd;
            fonts.Always = Joined(FacesOf(fonts.Always, installed));
            fonts.Never = Joined(FacesOf(fonts.Never, installed));
            break;
        }
        case page_bit::kDigitalSign:
            stored.Security.Digisig.Flags = StoredFlags(stored.Security.Digisig.Flags);
            break;
        case page_bit::kOptimization: {
            auto& swap = stored.Optimization.SwapToDisk;
            if (swap.Megabytes == 0) swap.Megabytes = 1;
            break;
        }
        case page_bit::kOverlay: {
            auto& overlay = stored.Overlay;
            if (overlay.Repeat != 0 && overlay.Repeat != 1) overlay.Repeat = 2;
            overlay.Fit = overlay.Enable != 0 || overlay.Fit != 0 ? 1 : 0;
            break;
        }
        default:
            break;
    }
    return stored;
}

PrinterSettings StoredByMailServer(const PrinterSettings& record) {
    return StoredByPage(kMailServer, record);
}

}  // namespace vmk::test
