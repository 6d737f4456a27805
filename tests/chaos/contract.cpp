#include "tests/chaos/contract.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <stdexcept>
#include <string_view>

#include "settings/groups.h"
#include "tests/settings/expected_settings.h"

namespace vmk::test {
namespace {

// Fonts that the tests bring along.
constexpr wchar_t kAlways[] = L"Vmk Always";
constexpr wchar_t kNever[] = L"Vmk Never";

const ExpectedSetting& Expected(std::string_view name) {
    const auto* const row = std::ranges::find(kExpectedSettings, name, &ExpectedSetting::name);
    if (row == std::end(kExpectedSettings)) throw std::out_of_range("a setting without a contract");
    return *row;
}

std::int32_t NumberWhenMissing(std::string_view name) {
    return Expected(name).number;
}
// The one text that is not loaded as a fresh record has it.
std::wstring TextWhenMissing(std::string_view name) {
    return name == "Save.App.Params" ? L"" : Expected(name).text;
}

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

std::string Narrowed(const std::wstring& wide) {
    std::string narrow(wide.size() * 2, '\0');
    const int length = WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()),
                                           narrow.data(), static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(length));
    return narrow;
}

std::wstring Widened(const std::string& narrow) {
    std::wstring wide(narrow.size(), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, narrow.data(), static_cast<int>(narrow.size()),
                                           wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

// Texts become narrow, and lose half a character at their end; everything else stays as it is.
std::string SeenByNarrowFunctions(const RawValue& value) {
    if (!IsText(value.type)) return value.bytes;
    std::wstring wide(value.bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(wide.data(), value.bytes.data(), wide.size() * sizeof(wchar_t));
    return Narrowed(wide);
}

std::wstring TextOf(const RawValue& value) {
    const std::string bytes = SeenByNarrowFunctions(value);
    return Widened(bytes.substr(0, bytes.find('\0')));
}

const RawValue* Find(const RawValues& values, const char* name) {
    const auto found = values.find(name);
    return found == values.end() ? nullptr : &found->second;
}

// Four bytes or fewer are the number's low bytes, whatever their type; the others stay what they were.
std::int32_t NumberOf(const RawValue* value, std::int32_t before, std::int32_t missing) {
    if (!value) return missing;
    std::string bytes = SeenByNarrowFunctions(*value);
    if (bytes.size() > sizeof before) return missing;
    // The system terminates a text where there is room for that.
    if (IsText(value->type) && !bytes.empty() && bytes.size() < sizeof before && bytes.back() != '\0')
        bytes += '\0';
    std::memcpy(&before, bytes.data(), bytes.size());
    return before;
}

struct Reader {
    const RawValues& values;

    void operator()(const char* name, std::int32_t& number) const {
        number = NumberOf(Find(values, name), number, NumberWhenMissing(name));
    }
    void operator()(const char* name, std::wstring& text) const {
        const RawValue* const value = Find(values, name);
        text = value ? TextOf(*value) : TextWhenMissing(name);
    }
    void operator()(const char* name, RunApplication& run) const {
        const RawValue* const value = Find(values, name);
        if (!value || value->type == REG_DWORD) {
            // Of a number that cannot be read there is none.
            run.Use = value && NumberOf(value, 0, 0) != 0 ? 1 : 0;
            run.WithoutPath = 1;
        } else if (value->type == REG_SZ) {
            run = {.Use = 1, .WithoutPath = 0, .Path = TextOf(*value)};
        }
    }
    void operator()(const char* name, SwapToDisk& swap) const {
        swap.Megabytes = NumberOf(Find(values, name), swap.Megabytes, NumberWhenMissing(name));
        swap.Enabled = swap.Megabytes != 0 ? 1 : 0;
    }
};

struct Writer {
    RawValues& values;

    void operator()(const char* name, std::int32_t number) const {
        values[name] = RawNumber(static_cast<DWORD>(number));
    }
    // In code pages of one byte for a character.
    void operator()(const char* name, const std::wstring& text) const {
        values[name] = RawText(Widened(Narrowed(text)));
    }
    void operator()(const char* name, const RunApplication& run) const {
        if (run.Use && !run.WithoutPath) {
            (*this)(name, run.Path);
        } else {
            (*this)(name, run.Use ? 1 : 0);
        }
    }
    void operator()(const char* name, const SwapToDisk& swap) const {
        (*this)(name, swap.Enabled ? swap.Megabytes : 0);
    }
};

}  // namespace

PrinterSettings Reading(const RawValues& values, const PrinterSettings& before) {
    PrinterSettings settings = before;
    WalkFields(page_bit::kAllPages, Reader{values}, settings);
    return settings;
}

RawValues Stored(const PrinterSettings& settings) {
    RawValues values;
    WalkFields(page_bit::kAllPages, Writer{values}, settings);
    return values;
}

PrinterSettings UndamagedSettings() {
    PrinterSettings settings;
    settings.Paper = {.Nup = 4, .NupOrder = 3};
    settings.General = {.PDFSpec = 5,
                        .PageLayout = 2,
                        .PageMode = 1,
                        .VP = {.HideToolbars = 1,
                               .HideMenubar = 1,
                               .HideUI = 1,
                               .ShowTitle = 1,
                               .Fit = 1,
                               .Center = 1,
                               .FSPageMode = 2}};
    settings.Compression = {.Graphics = 0,
                            .ASCII = 1,
                            .Text = 0,
                            .Color = {.Method = 4, .JPEGQuality = 33},
                            .Indexed = {.Method = 3},
                            .Mono = {.Method = 6}};
    settings.Downsample.Color = {.Use = 1, .DPI = 150, .Method = 1};
    settings.Downsample.Indexed = {.Use = 1, .DPI = 300, .Method = 0};
    settings.Downsample.Mono = {.Use = 1, .DPI = 600, .Method = 1};
    settings.Convert = {.Color = {.To = 1, .Dither = 0},
                        .Indexed = {.To = 2, .Dither = 0},
                        .Drawing = {.To = 2, .Threshold = 77}};
    settings.Fonts.Embedd = {
        .All = 1, .Protected = 0, .Use_Always = 1, .Always = kAlways, .Use_Never = 0, .Never = kNever};
    settings.Watermarks.Print = 1;
    settings.Security.Use = 1;
    settings.Security.UserPwd = L"open sesame";
    settings.Security.OwnerPwd = L"geh\u00E4m";
    settings.Security.Level = 40;
    settings.Security.Bits40 = {
        .AllowChanging = 1, .AllowComments = 1, .AllowPrinting = 1, .AllowCopying = 1};
    settings.Security.Bits128 = {.ContentAccess = 1, .AllowCopying = 1, .Changes = 3, .Printing = 2};
    settings.Security.Digisig = {.Enable = 1,
                                 .PFXFile = L"C:\\a.pfx",
                                 .PFXPassword = L"p\u00E4ss",
                                 .Reason = L"because",
                                 .Location = L"here",
                                 .ContactInfo = L"me",
                                 .Image = L"C:\\a.png",
                                 .Flags = 0x1510,
                                 .Page = 7,
                                 .Left = 100,
                                 .Top = 200,
                                 .Width = 300,
                                 .Height = 400};
    settings.Links = {.Border = {.Color = 0x00112233, .Style = 2, .Type = 1, .Width = 25},
                      .Analize = 0,
                      .Files = {.Analize = 1, .Check = 1}};
    settings.Bookmarks = {.Print = 1, .Multiline = 0, .MatchLevel = 1};
    settings.Info = {.Use = 0,
                     .Author = L"Author",
                     .Creator = L"Creator",
                     .Keywords = L"one, two",
                     .Subject = L"Subject",
                     .Title = L"T\u00EFtle",
                     .Extra = L""};
    settings.Save = {.UseSameFolder = 0,
                     .Type = 1,
                     .ShowSaveDialog = 1,
                     .FileName = L"%[User]",
                     .Folder = L"C:\\out",
                     .WhenExists = 2,
                     .AutoNumber = {.Start = 17, .Digits = 5},
                     .App = {.Run = {.Use = 1, .WithoutPath = 0, .Path = L"C:\\a.exe"}, .Params = L"/p"},
                     .JobsGroupName = L"group",
                     .LeaveGroup = L"leave"};
    settings.Email = {.Type = 3,
                      .ZIP = 1,
                      .From = L"a@b",
                      .To = L"c@d",
                      .CC = L"e@f",
                      .Subject = L"about",
                      .Content = L"line\r\nline",
                      .SMTP = {.Address = L"mail",
                               .UserName = L"user",
                               .Password = L"word",
                               .Port = 587,
                               .RequiresAuthentication = 1},
                      .STMP = {.UseSSL = 1}};
    settings.Optimization = {.BlendMode = 11,
                             .DeTessellation = 0,
                             .NoTransparency = 1,
                             .NoMaskedImages = 1,
                             .OptimizeImages = 0,
                             .SwapToDisk = {.Enabled = 1, .Megabytes = 6}};
    settings.Overlay = {.Enable = 1,
                        .File = L"C:\\a.pdf",
                        .Password = L"over",
                        .Foreground = 1,
                        .Repeat = 1,
                        .HAlign = 2,
                        .VAlign = 0,
                        .Fit = 1,
                        .KeepAspect = 1};
    return settings;
}

}  // namespace vmk::test
