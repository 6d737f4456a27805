#pragma once

#include <string_view>

// What the settings reference says of each setting beside what the field lists know: one row per stored name.

namespace vmk::docs {

struct SettingDescription {
    std::string_view name;
    std::string_view values;  // unit and range, or the choices
    std::string_view meaning;
};

inline constexpr std::string_view kFlag = "0 off, 1 on";
inline constexpr std::string_view kFontList =
    "face names joined by `;`, no blanks around it, none at the end";
inline constexpr std::string_view kDpi = "dots per inch, 50 to 2400";
inline constexpr std::string_view kDownsampling = "0 linear, 1 bilinear, 2 bicubic";
inline constexpr std::string_view kConversion = "0 none, 1 grayscale, 2 monochrome";
inline constexpr std::string_view kTenthsOfMillimetre = "tenths of a millimetre";
inline constexpr std::string_view kAnyText = "any text";
inline constexpr std::string_view kPassword = "any text, kept in plain form";
inline constexpr std::string_view kPath = "path";

inline constexpr SettingDescription kSettingDescriptions[] = {
    {"Paper.Nup", "1, 2, 4, 8, 9, 16", "Pages per sheet."},
    {"Paper.NupOrder",
     "for 2 pages: 0 left to right, 1 right to left; for 4 and more: 0 across from left, 1 down from left, "
     "2 across from right, 3 down from right",
     "Order of the pages on the sheet; without effect for one page per sheet."},

    {"General.PDFSpec", "3, 4, 5, 6", "Version of the PDF file: the digit after \"1.\"."},
    {"General.PageLayout", "0 single page, 1 one column, 2 two columns left, 3 two columns right",
     "How a viewer lays out the pages."},
    {"General.PageMode", "0 none, 1 bookmarks, 2 thumbnails, 3 full screen",
     "What a viewer shows beside the pages."},
    {"General.VP.HideToolbars", kFlag, "The viewer hides its toolbars."},
    {"General.VP.HideMenubar", kFlag, "The viewer hides its menu bar."},
    {"General.VP.HideUI", kFlag, "The viewer hides the controls in the document's window."},
    {"General.VP.ShowTitle", kFlag, "The viewer's title bar shows the document's title."},
    {"General.VP.Fit", kFlag, "The document's window takes the size of the first page."},
    {"General.VP.Center", kFlag, "The document's window is centred on the screen."},
    {"General.VP.FSPageMode", "number",
     "Page mode when the viewer leaves full screen. No control shows it; it stays as it was loaded."},

    {"Compression.Graphics", kFlag, "Compress graphics. The methods for images are offered while it is on."},
    {"Compression.ASCII", kFlag, "Write compressed data as ASCII characters, which makes the file larger."},
    {"Compression.Text", kFlag, "Compress text."},
    {"Compression.Color.Method",
     "0 none, 1 automatic, 2 JPEG, 3 ZIP, 4 JPEG/ZIP, 5 JPEG 2000, 6 JPEG 2000/ZIP",
     "Method for high-colour and grayscale images."},
    {"Compression.Color.JPEGQuality", "percent, 1 to 100", "Quality of JPEG images."},
    {"Compression.Indexed.Method", "0 none, 1 automatic, 2 run length, 3 ZIP, 4 LZW",
     "Method for images with a palette."},
    {"Compression.Mono.Method",
     "0 none, 1 automatic, 2 ZIP, 3 CCITT group 3, 4 CCITT group 4, 5 run length, 6 JBIG 2",
     "Method for black-and-white images."},

    {"Downsample.Color.Use", kFlag, "Reduce the resolution of high-colour and grayscale images."},
    {"Downsample.Color.DPI", kDpi, "Resolution that they are reduced to."},
    {"Downsample.Color.Method", kDownsampling, "How they are reduced."},
    {"Downsample.Indexed.Use", kFlag, "Reduce the resolution of images with a palette."},
    {"Downsample.Indexed.DPI", kDpi, "Resolution that they are reduced to."},
    {"Downsample.Indexed.Method", kDownsampling, "How they are reduced."},
    {"Downsample.Mono.Use", kFlag, "Reduce the resolution of black-and-white images."},
    {"Downsample.Mono.DPI", kDpi, "Resolution that they are reduced to."},
    {"Downsample.Mono.Method", kDownsampling, "How they are reduced."},
    {"Convert.Color.To", kConversion, "Convert high-colour and grayscale images."},
    {"Convert.Color.Dither", kFlag, "Dither them when they are converted to monochrome."},
    {"Convert.Indexed.To", kConversion, "Convert images with a palette."},
    {"Convert.Indexed.Dither", kFlag, "Dither them when they are converted to monochrome."},
    {"Convert.Drawing.To", kConversion, "Convert text and line art."},
    {"Convert.Drawing.Threshold", "grey level, 1 to 255",
     "Level that divides black from white when text and line art are converted to monochrome."},

    {"Fonts.Embedd.All", kFlag, "Embed every font that the document uses."},
    {"Fonts.Embedd.Protected", kFlag, "Embed fonts that are marked as protected, too."},
    {"Fonts.Embedd.Use_Always", kFlag, "Use the list `Fonts.Embedd.Always`."},
    {"Fonts.Embedd.Always", kFontList, "Fonts that are always embedded."},
    {"Fonts.Embedd.Use_Never", kFlag, "Use the list `Fonts.Embedd.Never`."},
    {"Fonts.Embedd.Never", kFontList, "Fonts that are never embedded."},

    {"Watermarks.Print", kFlag, "Print watermarks."},

    {"Security.Use", kFlag, "Encrypt the document."},
    {"Security.UserPwd", kPassword, "Password to open the document; empty for none."},
    {"Security.OwnerPwd", kPassword, "Password to change permissions and passwords; empty for none."},
    {"Security.Level", "bits: 40, 128", "Key length; the permissions for that length count."},
    {"Security.40.AllowChanging", kFlag, "The document may be changed."},
    {"Security.40.AllowComments", kFlag, "Comments and form fields may be added and changed."},
    {"Security.40.AllowPrinting", kFlag, "The document may be printed."},
    {"Security.40.AllowCopying", kFlag, "Contents may be copied and extracted; accessibility is enabled."},
    {"Security.128.ContentAccess", kFlag, "Contents are accessible for the visually impaired."},
    {"Security.128.AllowCopying", kFlag, "Contents may be copied and extracted."},
    {"Security.128.Changes",
     "0 none, 1 document assembly, 2 filling in form fields and signing, 3 also comments, "
     "4 general editing, comments and form fields",
     "Changes that are allowed."},
    {"Security.128.Printing", "0 not allowed, 1 low resolution, 2 fully allowed",
     "Printing that is allowed."},

    {"Links.Border.Color", "0x00BBGGRR", "Colour of the border around links."},
    {"Links.Border.Style", "0 solid, 1 dashed, 2 dotted", "Style of the border's line."},
    {"Links.Border.Type", "0 no border, 1 underline, 2 rectangle", "Shape of the border."},
    {"Links.Border.Width", "tenths of a point, 5 to 50", "Width of the border's line."},
    {"Links.Analize", kFlag, "Make links of web addresses in printed text."},
    {"Links.Files.Analize", kFlag, "Make links of file names in printed text."},
    {"Links.Files.Check", kFlag, "Link files only that exist."},

    {"Bookmarks.Print", kFlag, "Detect bookmarks automatically."},
    {"Bookmarks.Multiline", kFlag, "A bookmark may have several lines."},
    {"Bookmarks.MatchLevel", kFlag, "Match a node regardless of its level."},

    {"Info.Use", kFlag, "Write the texts below into the document."},
    {"Info.Author", kAnyText, "Author of the document."},
    {"Info.Creator", kAnyText, "Creator of the document."},
    {"Info.Keywords", kAnyText, "Keywords of the document."},
    {"Info.Subject", kAnyText, "Subject of the document."},
    {"Info.Title", kAnyText, "Title of the document."},

    {"Save.UseSameFolder", kFlag, "Use the same folder instead of `Save.Folder`."},
    {"Save.Type", "number", "No control shows it; it stays as it was loaded."},
    {"Save.ShowSaveDialog", kFlag, "Ask with a \"Save As...\" dialog; when off, the values below are used."},
    {"Save.FileName",
     "text with the macros `%[DocName]`, `%[Computer]`, `%[User]`, `%[Date]`, `%[Year]`, `%[Month]`, "
     "`%[Day]`, "
     "`%[Time]`, `%[Hour]`, `%[Minute]`, `%[Second]`",
     "Name of the file; macros are stored as they are and replaced when the file is made."},
    {"Save.Folder", kPath, "Folder of the file."},
    {"Save.WhenExists", "0 warn, 1 overwrite, 2 number automatically, 3 append to it, 4 insert before it",
     "What happens when the file exists."},
    {"Save.AutoNumber.Start", "0 to 2147483647", "First number of automatic numbering."},
    {"Save.AutoNumber.Digits", "1 to 6", "Digits of automatic numbering."},
    {"Save.App.Run",
     "number 0 none, number 1 the default application for PDF files, text: path of the application",
     "Application that is started on the finished file."},
    {"Save.App.Params", kAnyText,
     "Command line of the application. The default is that of new settings; a missing value is read as "
     "empty."},
    {"Save.JobsGroupName", kAnyText,
     "Name of a group of jobs. No control shows it; it stays as it was loaded."},
    {"Save.LeaveGroup", kAnyText, "No control shows it; it stays as it was loaded."},

    {"Email.Type",
     "0 none, 1 open the default e-mail program, 2 send through the default e-mail program, "
     "3 send through the SMTP server",
     "How the file is e-mailed."},
    {"Email.ZIP", kFlag, "Send the file in a ZIP archive."},
    {"Email.From", kAnyText, "Sender."},
    {"Email.To", kAnyText, "Recipients."},
    {"Email.CC", kAnyText, "Recipients of copies."},
    {"Email.Subject", kAnyText, "Subject."},
    {"Email.Content", "any text, several lines", "Body of the message."},
    {"Email.SMTP.Address", "host name or address", "SMTP server."},
    {"Email.SMTP.UserName", kAnyText, "Account at the server."},
    {"Email.SMTP.Password", kPassword, "Password of the account."},
    {"Email.SMTP.Port", "1 to 65535", "Port of the server."},
    {"Email.SMTP.RequiresAuthentication", kFlag, "The server asks for account and password."},
    {"Email.STMP.UseSSL", kFlag,
     "Log on with secure password authentication. The letters of the name stand in this order."},

    {"Optimization.BlendMode",
     "0 normal, 1 multiply, 2 screen, 3 overlay, 4 darken, 5 lighten, 6 colour dodge, 7 colour burn, "
     "8 hard light, 9 soft light, 10 difference, 11 exclusion",
     "Operation that blends transparent drawings."},
    {"Optimization.DeTessellation", "0 none, 1 simple", "How shapes that were cut into pieces are rebuilt."},
    {"Optimization.NoTransparency", kFlag, "Draw without transparency, for viewers that fail on it."},
    {"Optimization.NoMaskedImages", kFlag, "Draw without masked images, for viewers that fail on them."},
    {"Optimization.OptimizeImages", kFlag, "Optimize sequences of images."},
    {"Optimization.SwapToDisk", "megabytes, 1 to 8; 0 never", "Size above which images are swapped to disk."},

    {"Overlay.Enable", kFlag, "Lay an existing PDF file over or under each page."},
    {"Overlay.File", kPath, "That file."},
    {"Overlay.Password", kPassword, "Password to open it."},
    {"Overlay.Foreground", kFlag, "Lay it over the page's contents, not under them."},
    {"Overlay.Repeat", "0 not, 1 its last page, 2 all its pages",
     "What is repeated when the file has fewer pages than the document."},
    {"Overlay.HAlign", "0 left, 1 centre, 2 right", "Horizontal position on the page."},
    {"Overlay.VAlign", "0 top, 1 middle, 2 bottom", "Vertical position on the page."},
    {"Overlay.Fit", kFlag, "Fit the file's pages to those of the document."},
    {"Overlay.KeepAspect", kFlag, "Keep their aspect ratio then."},

    {"Security.Digisig.Enable", kFlag, "Sign the document with a certificate from a file."},
    {"Security.Digisig.PFXFile", kPath, "File of the certificate."},
    {"Security.Digisig.PFXPassword", kPassword, "Password of that file."},
    {"Security.Digisig.Reason", kAnyText, "Reason for signing."},
    {"Security.Digisig.Location", kAnyText, "Place of signing."},
    {"Security.Digisig.ContactInfo", kAnyText, "How to reach the signer."},
    {"Security.Digisig.Image", kPath, "Image that the signature shows."},
    {"Security.Digisig.Flags",
     "sum of at most one of 0x10 image and 0x20 name as graphic, and any of 0x100 name, 0x200 date, "
     "0x400 location, 0x800 reason, 0x1000 distinguished name, 0x8000 labels",
     "What the signature shows."},
    {"Security.Digisig.Page", "-1 to 2147483647; -1 is the last page", "Page of the signature."},
    {"Security.Digisig.Left", kTenthsOfMillimetre, "Left edge of the signature."},
    {"Security.Digisig.Top", kTenthsOfMillimetre, "Top edge of the signature."},
    {"Security.Digisig.Width", kTenthsOfMillimetre, "Width of the signature."},
    {"Security.Digisig.Height", kTenthsOfMillimetre, "Height of the signature."},
};

}  // namespace vmk::docs
