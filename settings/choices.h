#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <span>
#include <string_view>

// What the numbers of the record may be, beside the record: the pages offer it, the settings reference and
// vmkprefs print it. Nothing here keeps a stored number from being something else.

namespace vmk {

// One value of a setting and its English name, which is translated where it is shown.
struct Choice {
    std::int32_t value;
    const wchar_t* text;
};

// The text as it is shown where it is not translated.
constexpr std::wstring_view EnglishText(const Choice& choice) {
    const std::wstring_view text = choice.text;
    return text.substr(0, text.find_last_not_of(L' ') + 1);
}

// The values of one number: those that have a text, and all from the smallest to the largest where these
// differ.
struct NumberValues {
    std::string_view name;  // as stored
    std::span<const Choice> choices = {};
    std::int32_t smallest = 0;
    std::int32_t largest = 0;
    std::string_view unit = {};  // of the range; empty for a mere count

    constexpr bool HasRange() const { return smallest < largest; }
    constexpr bool IsInRange(std::int32_t number) const {
        return HasRange() && smallest <= number && number <= largest;
    }
};

// The choice with the value; null when there is none.
constexpr const Choice* FindChoice(std::span<const Choice> choices, std::int32_t value) {
    const auto choice = std::ranges::find(choices, value, &Choice::value);
    return choice == choices.end() ? nullptr : &*choice;
}

namespace choices {

inline constexpr Choice kFlag[] = {{0, L"Off"}, {1, L"On"}};

inline constexpr std::int32_t kOnePage = 1;
inline constexpr Choice kPagesPerSheet[] = {
    {kOnePage, L"1 page"}, {2, L"2 pages"}, {4, L"4 pages"},
    {8, L"8 pages"},       {9, L"9 pages"}, {16, L"16 pages"},
};
// Which order a number means depends on the pages per sheet.
inline constexpr Choice kOrdersOfTwo[] = {{0, L"Left To Right"}, {1, L"Right To Left"}};
inline constexpr Choice kOrdersOfMore[] = {
    {0, L"Across From Left"}, {1, L"Down From Left"}, {2, L"Across From Right"}, {3, L"Down From Right"}};

inline constexpr Choice kVersions[] = {
    {3, L"Version 1.3 (Acrobat v3.0 and v4.x)"},
    {4, L"Version 1.4 (Acrobat v5.x)"},
    {5, L"Version 1.5 (Acrobat v6.0 and above)"},
    {6, L"Version 1.6 (Acrobat v7.0 and above)"},
};
inline constexpr Choice kPageLayouts[] = {
    {0, L"Single Page"}, {1, L"One Column"}, {2, L"Two Columns Left"}, {3, L"Two Columns Right"}};
inline constexpr Choice kPageModes[] = {
    {0, L"Show None"}, {1, L"Show Bookmarks"}, {2, L"Show Thumbnails"}, {3, L"Full Screen"}};

inline constexpr Choice kColorMethods[] = {{0, L"None"},         {1, L"Auto"},     {2, L"JPEG"},
                                           {3, L"ZIP"},          {4, L"JPEG/ZIP"}, {5, L"JPEG 2000"},
                                           {6, L"JPEG 2000/ZIP"}};
inline constexpr Choice kIndexedMethods[] = {
    {0, L"None"}, {1, L"Auto"}, {2, L"Run Length"}, {3, L"ZIP"}, {4, L"LZW"}};
inline constexpr Choice kMonoMethods[] = {{0, L"None"},          {1, L"Auto"},          {2, L"ZIP"},
                                          {3, L"CCITT Group 3"}, {4, L"CCITT Group 4"}, {5, L"Run Length"},
                                          {6, L"JBIG 2"}};

inline constexpr Choice kDownsampling[] = {
    {0, L"Linear Downsampling"}, {1, L"Bilinear Downsampling"}, {2, L"Bicubic Downsampling"}};
inline constexpr Choice kConversion[] = {{0, L"None"}, {1, L"Grayscale"}, {2, L"Monochrome"}};

inline constexpr std::int32_t k40Bits = 40;
inline constexpr std::int32_t k128Bits = 128;
inline constexpr Choice kLevels[] = {{k40Bits, L"40-bit RC4 (Acrobat 3.x, 4.x)"},
                                     {k128Bits, L"128-bit RC4 (Acrobat 5.x and above)"}};
// With a blank behind it, here and in the e-mail methods: another "None" may be translated differently.
inline constexpr Choice kChanges[] = {
    {0, L"None "},
    {1, L"Only Document Assembly"},
    {2, L"Only Form Field Fill-in or Signing"},
    {3, L"Comment Authoring, Form Field Fill-in or Signing"},
    {4, L"General Editing, Comment and Form Field Authoring"},
};
inline constexpr Choice kPrinting[] = {{0, L"Not Allowed"}, {1, L"Low Resolution"}, {2, L"Fully Allowed"}};

inline constexpr Choice kBorderTypes[] = {{0, L"No Border"}, {1, L"Underline"}, {2, L"Rectangle"}};
inline constexpr Choice kBorderStyles[] = {{0, L"Solid"}, {1, L"Dashed"}, {2, L"Dotted"}};

// A text in the same place is the path of another application.
inline constexpr Choice kApplications[] = {{0, L"None"}, {1, L"Default Application for PDF files"}};

inline constexpr std::int32_t kAutoNumber = 2;
inline constexpr Choice kWhenExists[] = {
    {0, L"Show Warning Dialog"},
    {1, L"Always Overwrite"},
    {kAutoNumber, L"Auto Number"},
    {3, L"Merge With Existing (Append To)"},
    {4, L"Merge With Existing (Insert Before)"},
};

inline constexpr Choice kEmailMethods[] = {
    {0, L"None "},
    {1, L"Launch Default e-Mail Client"},
    {2, L"Send Through Default e-Mail Client"},
    {3, L"Send Directly Through SMTP Server"},
};

// The separable blend modes of PDF, in its order and with its names.
inline constexpr Choice kBlendModes[] = {
    {0, L"Normal"},    {1, L"Multiply"},  {2, L"Screen"},      {3, L"Overlay"},
    {4, L"Darken"},    {5, L"Lighten"},   {6, L"ColorDodge"},  {7, L"ColorBurn"},
    {8, L"HardLight"}, {9, L"SoftLight"}, {10, L"Difference"}, {11, L"Exclusion"},
};
inline constexpr Choice kDeTessellation[] = {{0, L"None"}, {1, L"Simple"}};

inline constexpr Choice kNoSwapping[] = {{0, L"Never"}};

inline constexpr Choice kRepeat[] = {
    {0, L"No Repeat"},
    {1, L"Repeat Last Page of Shorter Overlay File"},
    {2, L"Continuous Repeat of Shorter Overlay File"},
};
inline constexpr Choice kHorizontal[] = {{0, L"Left"}, {1, L"Center"}, {2, L"Right"}};
inline constexpr Choice kVertical[] = {{0, L"Top"}, {1, L"Middle"}, {2, L"Bottom"}};

inline constexpr Choice kLastPage[] = {{-1, L"Last Page"}};

// The kind of graphic is a part of the signature's flags, and each of the other bits a text that it shows.
inline constexpr std::int32_t kGraphicBits = 0x30;
inline constexpr std::int32_t kImage = 0x10;
inline constexpr std::int32_t kName = 0x20;
inline constexpr Choice kGraphics[] = {{0, L"No Graphic"}, {kImage, L"Image"}, {kName, L"Name"}};
inline constexpr Choice kShownTexts[] = {
    {0x100, L"Name"}, {0x400, L"Location"}, {0x1000, L"Distinguished Name"},
    {0x200, L"Date"}, {0x800, L"Reason"},   {0x8000, L"Labels"},
};

}  // namespace choices

inline constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

// Every number that is stored, in the order of storing; also of what may be a number or a text.
inline constexpr NumberValues kNumberValues[] = {
    {.name = "Paper.Nup", .choices = choices::kPagesPerSheet},
    {.name = "Paper.NupOrder", .choices = choices::kOrdersOfMore},
    {.name = "General.PDFSpec", .choices = choices::kVersions},
    {.name = "General.PageLayout", .choices = choices::kPageLayouts},
    {.name = "General.PageMode", .choices = choices::kPageModes},
    {.name = "General.VP.HideToolbars", .choices = choices::kFlag},
    {.name = "General.VP.HideMenubar", .choices = choices::kFlag},
    {.name = "General.VP.HideUI", .choices = choices::kFlag},
    {.name = "General.VP.ShowTitle", .choices = choices::kFlag},
    {.name = "General.VP.Fit", .choices = choices::kFlag},
    {.name = "General.VP.Center", .choices = choices::kFlag},
    {.name = "General.VP.FSPageMode", .smallest = kSmallest, .largest = kLargest},
    {.name = "Compression.Graphics", .choices = choices::kFlag},
    {.name = "Compression.ASCII", .choices = choices::kFlag},
    {.name = "Compression.Text", .choices = choices::kFlag},
    {.name = "Compression.Color.Method", .choices = choices::kColorMethods},
    {.name = "Compression.Color.JPEGQuality", .smallest = 1, .largest = 100, .unit = "percent"},
    {.name = "Compression.Indexed.Method", .choices = choices::kIndexedMethods},
    {.name = "Compression.Mono.Method", .choices = choices::kMonoMethods},
    {.name = "Downsample.Color.Use", .choices = choices::kFlag},
    {.name = "Downsample.Color.DPI", .smallest = 50, .largest = 2400, .unit = "dots per inch"},
    {.name = "Downsample.Color.Method", .choices = choices::kDownsampling},
    {.name = "Downsample.Indexed.Use", .choices = choices::kFlag},
    {.name = "Downsample.Indexed.DPI", .smallest = 50, .largest = 2400, .unit = "dots per inch"},
    {.name = "Downsample.Indexed.Method", .choices = choices::kDownsampling},
    {.name = "Downsample.Mono.Use", .choices = choices::kFlag},
    {.name = "Downsample.Mono.DPI", .smallest = 50, .largest = 2400, .unit = "dots per inch"},
    {.name = "Downsample.Mono.Method", .choices = choices::kDownsampling},
    {.name = "Convert.Color.To", .choices = choices::kConversion},
    {.name = "Convert.Color.Dither", .choices = choices::kFlag},
    {.name = "Convert.Indexed.To", .choices = choices::kConversion},
    {.name = "Convert.Indexed.Dither", .choices = choices::kFlag},
    {.name = "Convert.Drawing.To", .choices = choices::kConversion},
    {.name = "Convert.Drawing.Threshold", .smallest = 1, .largest = 255, .unit = "levels of grey"},
    {.name = "Fonts.Embedd.All", .choices = choices::kFlag},
    {.name = "Fonts.Embedd.Protected", .choices = choices::kFlag},
    {.name = "Fonts.Embedd.Use_Always", .choices = choices::kFlag},
    {.name = "Fonts.Embedd.Use_Never", .choices = choices::kFlag},
    {.name = "Watermarks.Print", .choices = choices::kFlag},
    {.name = "Security.Use", .choices = choices::kFlag},
    {.name = "Security.Level", .choices = choices::kLevels},
    {.name = "Security.40.AllowChanging", .choices = choices::kFlag},
    {.name = "Security.40.AllowComments", .choices = choices::kFlag},
    {.name = "Security.40.AllowPrinting", .choices = choices::kFlag},
    {.name = "Security.40.AllowCopying", .choices = choices::kFlag},
    {.name = "Security.128.ContentAccess", .choices = choices::kFlag},
    {.name = "Security.128.AllowCopying", .choices = choices::kFlag},
    {.name = "Security.128.Changes", .choices = choices::kChanges},
    {.name = "Security.128.Printing", .choices = choices::kPrinting},
    {.name = "Links.Border.Color", .smallest = 0, .largest = 0xFFFFFF, .unit = "as 0x00BBGGRR"},
    {.name = "Links.Border.Style", .choices = choices::kBorderStyles},
    {.name = "Links.Border.Type", .choices = choices::kBorderTypes},
    {.name = "Links.Border.Width", .smallest = 5, .largest = 50, .unit = "tenths of a point"},
    {.name = "Links.Analize", .choices = choices::kFlag},
    {.name = "Links.Files.Analize", .choices = choices::kFlag},
    {.name = "Links.Files.Check", .choices = choices::kFlag},
    {.name = "Bookmarks.Print", .choices = choices::kFlag},
    {.name = "Bookmarks.Multiline", .choices = choices::kFlag},
    {.name = "Bookmarks.MatchLevel", .choices = choices::kFlag},
    {.name = "Info.Use", .choices = choices::kFlag},
    {.name = "Save.UseSameFolder", .choices = choices::kFlag},
    {.name = "Save.Type", .smallest = kSmallest, .largest = kLargest},
    {.name = "Save.ShowSaveDialog", .choices = choices::kFlag},
    {.name = "Save.WhenExists", .choices = choices::kWhenExists},
    {.name = "Save.AutoNumber.Start", .smallest = 0, .largest = kLargest},
    {.name = "Save.AutoNumber.Digits", .smallest = 1, .largest = 6},
    {.name = "Save.App.Run", .choices = choices::kApplications},
    {.name = "Email.Type", .choices = choices::kEmailMethods},
    {.name = "Email.ZIP", .choices = choices::kFlag},
    {.name = "Email.SMTP.Port", .smallest = 1, .largest = 65535},
    {.name = "Email.SMTP.RequiresAuthentication", .choices = choices::kFlag},
    {.name = "Email.STMP.UseSSL", .choices = choices::kFlag},
    {.name = "Optimization.BlendMode", .choices = choices::kBlendModes},
    {.name = "Optimization.DeTessellation", .choices = choices::kDeTessellation},
    {.name = "Optimization.NoTransparency", .choices = choices::kFlag},
    {.name = "Optimization.NoMaskedImages", .choices = choices::kFlag},
    {.name = "Optimization.OptimizeImages", .choices = choices::kFlag},
    {.name = "Optimization.SwapToDisk",
     .choices = choices::kNoSwapping,
     .smallest = 1,
     .largest = 8,
     .unit = "megabytes"},
    {.name = "Overlay.Enable", .choices = choices::kFlag},
    {.name = "Overlay.Foreground", .choices = choices::kFlag},
    {.name = "Overlay.Repeat", .choices = choices::kRepeat},
    {.name = "Overlay.HAlign", .choices = choices::kHorizontal},
    {.name = "Overlay.VAlign", .choices = choices::kVertical},
    {.name = "Overlay.Fit", .choices = choices::kFlag},
    {.name = "Overlay.KeepAspect", .choices = choices::kFlag},
    {.name = "Security.Digisig.Enable", .choices = choices::kFlag},
    {.name = "Security.Digisig.Flags", .smallest = 0, .largest = 0x9F20, .unit = "as a sum of bits"},
    {.name = "Security.Digisig.Page", .choices = choices::kLastPage, .smallest = -1, .largest = kLargest},
    {.name = "Security.Digisig.Left", .smallest = 0, .largest = kLargest, .unit = "tenths of a millimetre"},
    {.name = "Security.Digisig.Top", .smallest = 0, .largest = kLargest, .unit = "tenths of a millimetre"},
    {.name = "Security.Digisig.Width", .smallest = 0, .largest = kLargest, .unit = "tenths of a millimetre"},
    {.name = "Security.Digisig.Height", .smallest = 0, .largest = kLargest, .unit = "tenths of a millimetre"},
};

// The row of a stored name; null when the name is that of a text or of nothing.
constexpr const NumberValues* FindNumberValues(std::string_view name) {
    const auto* const row = std::ranges::find(kNumberValues, name, &NumberValues::name);
    return row == std::end(kNumberValues) ? nullptr : row;
}

struct NumberRange {
    std::int32_t smallest;
    std::int32_t largest;
};

// For names that are written down in the code: one that is not in the table does not compile, and the table
// itself does not become a part of the program.
consteval std::span<const Choice> ChoicesOf(std::string_view name) {
    return FindNumberValues(name)->choices;
}
consteval NumberRange RangeOf(std::string_view name) {
    const NumberValues& values = *FindNumberValues(name);
    return {.smallest = values.smallest, .largest = values.largest};
}

}  // namespace vmk
