#pragma once

#include <string_view>

// What the settings reference says of each setting beside what the field lists and the choices
// know: one row per stored name.

namespace vmk::docs {

struct SettingDescription {
    std::string_view name;
    std::string_view meaning;
    std::string_view texts = {};  // what a text may be; numbers stand in settings/choices.h
};

inline constexpr std::string_view kFontList =
    "face names joined by `;`, no blanks around it, none at the end";
inline constexpr std::string_view kAnyText = "any text";
inline constexpr std::string_view kPassword = "any text, kept in plain form";
inline constexpr std::string_view kPath = "path";

inline constexpr SettingDescription kSettingDescriptions[] = {
    {"Paper.Nup", "Pages per sheet."},
    {"Paper.NupOrder",
     "Order of the pages on the sheet. For 2 pages per sheet 0 is left to right and 1 right to left; for one "
     "page it has no effect."},

    {"General.PDFSpec", "Version of the PDF file: the digit after \"1.\"."},
    {"General.PageLayout", "How a viewer lays out the pages."},
    {"General.PageMode", "What a viewer shows beside the pages."},
    {"General.VP.HideToolbars", "The viewer hides its toolbars."},
    {"General.VP.HideMenubar", "The viewer hides its menu bar."},
    {"General.VP.HideUI", "The viewer hides the controls in the document's window."},
    {"General.VP.ShowTitle", "The viewer's title bar shows the document's title."},
    {"General.VP.Fit", "The document's window takes the size of the first page."},
    {"General.VP.Center", "The document's window is centred on the screen."},
    {"General.VP.FSPageMode",
     "Page mode when the viewer leaves full screen. No control shows it; it stays as it was loaded."},

    {"Compression.Graphics", "Compress graphics. The methods for images are offered while it is on."},
    {"Compression.ASCII", "Write compressed data as ASCII characters, which makes the file larger."},
    {"Compression.Text", "Compress text."},
    {"Compression.Color.Method", "Method for high-colour and grayscale images."},
    {"Compression.Color.JPEGQuality", "Quality of JPEG images."},
    {"Compression.Indexed.Method", "Method for images with a palette."},
    {"Compression.Mono.Method", "Method for black-and-white images."},

    {"Downsample.Color.Use", "Reduce the resolution of high-colour and grayscale images."},
    {"Downsample.Color.DPI", "Resolution that they are reduced to."},
    {"Downsample.Color.Method", "How they are reduced."},
    {"Downsample.Indexed.Use", "Reduce the resolution of images with a palette."},
    {"Downsample.Indexed.DPI", "Resolution that they are reduced to."},
    {"Downsample.Indexed.Method", "How they are reduced."},
    {"Downsample.Mono.Use", "Reduce the resolution of black-and-white images."},
    {"Downsample.Mono.DPI", "Resolution that they are reduced to."},
    {"Downsample.Mono.Method", "How they are reduced."},
    {"Convert.Color.To", "Convert high-colour and grayscale images."},
    {"Convert.Color.Dither", "Dither them when they are converted to monochrome."},
    {"Convert.Indexed.To", "Convert images with a palette."},
    {"Convert.Indexed.Dither", "Dither them when they are converted to monochrome."},
    {"Convert.Drawing.To", "Convert text and line art."},
    {"Convert.Drawing.Threshold",
     "Level that divides black from white when text and line art are converted to monochrome."},

    {"Fonts.Embedd.All", "Embed every font that the document uses."},
    {"Fonts.Embedd.Protected", "Embed fonts that are marked as protected, too."},
    {"Fonts.Embedd.Use_Always", "Use the list `Fonts.Embedd.Always`."},
    {"Fonts.Embedd.Always", "Fonts that are always embedded.", kFontList},
    {"Fonts.Embedd.Use_Never", "Use the list `Fonts.Embedd.Never`."},
    {"Fonts.Embedd.Never", "Fonts that are never embedded.", kFontList},

    {"Watermarks.Print", "Print watermarks."},

    {"Security.Use", "Encrypt the document."},
    {"Security.UserPwd", "Password to open the document; empty for none.", kPassword},
    {"Security.OwnerPwd", "Password to change permissions and passwords; empty for none.", kPassword},
    {"Security.Level", "Length of the key in bits; the permissions for that length count."},
    {"Security.40.AllowChanging", "The document may be changed."},
    {"Security.40.AllowComments", "Comments and form fields may be added and changed."},
    {"Security.40.AllowPrinting", "The document may be printed."},
    {"Security.40.AllowCopying", "Contents may be copied and extracted; accessibility is enabled."},
    {"Security.128.ContentAccess", "Contents are accessible for the visually impaired."},
    {"Security.128.AllowCopying", "Contents may be copied and extracted."},
    {"Security.128.Changes", "Changes that are allowed."},
    {"Security.128.Printing", "Printing that is allowed."},

    {"Links.Border.Color", "Colour of the border around links."},
    {"Links.Border.Style", "Style of the border's line."},
    {"Links.Border.Type", "Shape of the border."},
    {"Links.Border.Width", "Width of the border's line."},
    {"Links.Analize", "Make links of web addresses in printed text."},
    {"Links.Files.Analize", "Make links of file names in printed text."},
    {"Links.Files.Check", "Link files only that exist."},

    {"Bookmarks.Print", "Detect bookmarks automatically."},
    {"Bookmarks.Multiline", "A bookmark may have several lines."},
    {"Bookmarks.MatchLevel", "Match a node regardless of its level."},

    {"Info.Use", "Write the texts below into the document."},
    {"Info.Author", "Author of the document.", kAnyText},
    {"Info.Creator", "Creator of the document.", kAnyText},
    {"Info.Keywords", "Keywords of the document.", kAnyText},
    {"Info.Subject", "Subject of the document.", kAnyText},
    {"Info.Title", "Title of the document.", kAnyText},

    {"Save.UseSameFolder", "Use the same folder instead of `Save.Folder`."},
    {"Save.Type", "No control shows it; it stays as it was loaded."},
    {"Save.ShowSaveDialog", "Ask with a \"Save As...\" dialog; when off, the values below are used."},
    {"Save.FileName", "Name of the file; macros are stored as they are and replaced when the file is made.",
     "text with the macros `%[DocName]`, `%[Computer]`, `%[User]`, `%[Date]`, `%[Year]`, `%[Month]`, "
     "`%[Day]`, "
     "`%[Time]`, `%[Hour]`, `%[Minute]`, `%[Second]`"},
    {"Save.Folder", "Folder of the file.", kPath},
    {"Save.WhenExists", "What happens when the file exists."},
    {"Save.AutoNumber.Start", "First number of automatic numbering."},
    {"Save.AutoNumber.Digits", "Digits of automatic numbering."},
    {"Save.App.Run", "Application that is started on the finished file.", "path of the application"},
    {"Save.App.Params",
     "Command line of the application. The default is that of new settings; a missing value is read as "
     "empty.",
     kAnyText},
    {"Save.JobsGroupName", "Name of a group of jobs. No control shows it; it stays as it was loaded.",
     kAnyText},
    {"Save.LeaveGroup", "No control shows it; it stays as it was loaded.", kAnyText},

    {"Email.Type", "How the file is e-mailed."},
    {"Email.ZIP", "Send the file in a ZIP archive."},
    {"Email.From", "Sender.", kAnyText},
    {"Email.To", "Recipients.", kAnyText},
    {"Email.CC", "Recipients of copies.", kAnyText},
    {"Email.Subject", "Subject.", kAnyText},
    {"Email.Content", "Body of the message.", "any text, several lines"},
    {"Email.SMTP.Address", "SMTP server.", "host name or address"},
    {"Email.SMTP.UserName", "Account at the server.", kAnyText},
    {"Email.SMTP.Password", "Password of the account.", kPassword},
    {"Email.SMTP.Port", "Port of the server."},
    {"Email.SMTP.RequiresAuthentication", "The server asks for account and password."},
    {"Email.STMP.UseSSL",
     "Log on with secure password authentication. The letters of the name stand in this order."},

    {"Optimization.BlendMode", "Operation that blends transparent drawings."},
    {"Optimization.DeTessellation", "How shapes that were cut into pieces are rebuilt."},
    {"Optimization.NoTransparency", "Draw without transparency, for viewers that fail on it."},
    {"Optimization.NoMaskedImages", "Draw without masked images, for viewers that fail on them."},
    {"Optimization.OptimizeImages", "Optimize sequences of images."},
    {"Optimization.SwapToDisk", "Size above which images are swapped to disk."},

    {"Overlay.Enable", "Lay an existing PDF file over or under each page."},
    {"Overlay.File", "That file.", kPath},
    {"Overlay.Password", "Password to open it.", kPassword},
    {"Overlay.Foreground", "Lay it over the page's contents, not under them."},
    {"Overlay.Repeat", "What is repeated when the file has fewer pages than the document."},
    {"Overlay.HAlign", "Horizontal position on the page."},
    {"Overlay.VAlign", "Vertical position on the page."},
    {"Overlay.Fit", "Fit the file's pages to those of the document."},
    {"Overlay.KeepAspect", "Keep their aspect ratio then."},

    {"Security.Digisig.Enable", "Sign the document with a certificate from a file."},
    {"Security.Digisig.PFXFile", "File of the certificate.", kPath},
    {"Security.Digisig.PFXPassword", "Password of that file.", kPassword},
    {"Security.Digisig.Reason", "Reason for signing.", kAnyText},
    {"Security.Digisig.Location", "Place of signing.", kAnyText},
    {"Security.Digisig.ContactInfo", "How to reach the signer.", kAnyText},
    {"Security.Digisig.Image", "Image that the signature shows.", kPath},
    {"Security.Digisig.Flags",
     "What the signature shows: at most one of 0x10 image and 0x20 name as graphic, and any of 0x100 name, "
     "0x200 date, 0x400 location, 0x800 reason, 0x1000 distinguished name, 0x8000 labels."},
    {"Security.Digisig.Page", "Page of the signature."},
    {"Security.Digisig.Left", "Left edge of the signature."},
    {"Security.Digisig.Top", "Top edge of the signature."},
    {"Security.Digisig.Width", "Width of the signature."},
    {"Security.Digisig.Height", "Height of the signature."},
};

}  // namespace vmk::docs
