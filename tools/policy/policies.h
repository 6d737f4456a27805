#pragma once

#include <string_view>

// Which settings administrators can prescribe by policy, and under which name; of the others, why they
// cannot. Every setting is in one of the two tables, so that a new one is in a policy or left out on purpose.
//
// A name is the text that the dialog shows for the setting, where that alone says what is meant: it is
// translated already. The other names are translated in german.txt beside this file, like all that the
// policies say besides.

namespace vmk::policy {

struct PolicyName {
    std::string_view setting;  // stored name
    const wchar_t* name;       // a colon at the end and a mark of an access key are not shown
};

struct NoPolicy {
    std::string_view setting;
    std::string_view reason;
};

inline constexpr PolicyName kPolicyNames[] = {
    {"Paper.Nup", L"Page Per Sheet:"},
    {"Paper.NupOrder", L"Page Order:"},

    {"General.PDFSpec", L"PDF Version"},
    {"General.PageLayout", L"Page Layout:"},
    {"General.PageMode", L"Page Mode:"},
    {"General.VP.HideToolbars", L"Hide Toolbars"},
    {"General.VP.HideMenubar", L"Hide Menubar"},
    {"General.VP.HideUI", L"Hide Document's Window User Interface Elements"},
    {"General.VP.ShowTitle", L"Display Document Title in The Windows Titlebar"},
    {"General.VP.Fit", L"Resize Document's Window to Fit the Size of the First Page"},
    {"General.VP.Center", L"Center Document's Window"},

    {"Compression.Graphics", L"Compress Graphics"},
    {"Compression.ASCII", L"ASCII format (Larger File)"},
    {"Compression.Text", L"Compress Text"},
    {"Compression.Color.Method", L"Compression of High Color/Grayscale Images"},
    {"Compression.Color.JPEGQuality", L"JPEG Quality:"},
    {"Compression.Indexed.Method", L"Compression of Indexed Images"},
    {"Compression.Mono.Method", L"Compression of Monochrome Images"},

    {"Downsample.Color.Use", L"Downsample High Color/Grayscale Images"},
    {"Downsample.Color.DPI", L"Resolution of High Color/Grayscale Images"},
    {"Downsample.Color.Method", L"Downsampling Method of High Color/Grayscale Images"},
    {"Downsample.Indexed.Use", L"Downsample Indexed Images"},
    {"Downsample.Indexed.DPI", L"Resolution of Indexed Images"},
    {"Downsample.Indexed.Method", L"Downsampling Method of Indexed Images"},
    {"Downsample.Mono.Use", L"Downsample Monochrome Images"},
    {"Downsample.Mono.DPI", L"Resolution of Monochrome Images"},
    {"Downsample.Mono.Method", L"Downsampling Method of Monochrome Images"},
    {"Convert.Color.To", L"Convert High Color/Grayscale Images"},
    {"Convert.Color.Dither", L"Dithering of High Color/Grayscale Images"},
    {"Convert.Indexed.To", L"Convert Indexed Images"},
    {"Convert.Indexed.Dither", L"Dithering of Indexed Images"},
    {"Convert.Drawing.To", L"Convert Text/LineArts"},
    {"Convert.Drawing.Threshold", L"Threshold of Text/LineArts"},

    {"Fonts.Embedd.All", L"Embed All Used Fonts"},
    {"Fonts.Embedd.Protected", L"Force Embed Protected Fonts"},
    {"Fonts.Embedd.Use_Always", L"Always Embed Fonts:"},
    {"Fonts.Embedd.Always", L"Always Embed Fonts: List"},
    {"Fonts.Embedd.Use_Never", L"Never Embed Fonts:"},
    {"Fonts.Embedd.Never", L"Never Embed Fonts: List"},

    {"Watermarks.Print", L"Enable Printing Watermark"},

    {"Security.Use", L"Use PDF security"},
    {"Security.Level", L"Encryption Level:"},
    {"Security.40.AllowChanging", L"40-Bit Key: Changing the Document"},
    {"Security.40.AllowComments", L"40-Bit Key: Comments and Form Fields"},
    {"Security.40.AllowPrinting", L"40-Bit Key: Printing"},
    {"Security.40.AllowCopying", L"40-Bit Key: Copying, Extraction and Accessibility"},
    {"Security.128.ContentAccess", L"128-Bit Key: Access for the Visually Impaired"},
    {"Security.128.AllowCopying", L"128-Bit Key: Copying and Extraction"},
    {"Security.128.Changes", L"128-Bit Key: Changes"},
    {"Security.128.Printing", L"128-Bit Key: Printing"},

    {"Links.Border.Style", L"Border Style:"},
    {"Links.Border.Type", L"Border Type:"},
    {"Links.Border.Width", L"Border Width:"},
    {"Links.Analize", L"Analize URLs in Printed Text"},
    {"Links.Files.Analize", L"Detect Filenames and Convert To PDF Links"},
    {"Links.Files.Check", L"Check Files Exist For Linking"},

    {"Bookmarks.Print", L"Enable Automatically Bookmarks Detection"},
    {"Bookmarks.Multiline", L"Allow Multi-Line Bookmarks"},
    {"Bookmarks.MatchLevel", L"Match Node Regardless of Level"},

    {"Info.Use", L"Place Additional Information Into the Document"},
    {"Info.Author", L"Author:"},
    {"Info.Creator", L"Creator:"},

    {"Save.UseSameFolder", L"Use same folder"},
    {"Save.ShowSaveDialog", L"Show 'Save As...' Dialog"},
    {"Save.FileName", L"File Name:"},
    {"Save.Folder", L"Path:"},
    {"Save.WhenExists", L"When File Exists:"},
    {"Save.AutoNumber.Start", L"Automatic Numbering: First Number"},
    {"Save.AutoNumber.Digits", L"Automatic Numbering: Digits"},
    {"Save.App.Run", L"Run Application After Printing"},
    {"Save.App.Params", L"Parameters of the Application"},

    {"Email.Type", L"Method:"},
    {"Email.ZIP", L"Send Document in ZIP Archive"},
    {"Email.To", L"Recipients"},
    {"Email.CC", L"Recipients of Copies"},
    {"Email.Subject", L"Subject:"},
    {"Email.SMTP.Address", L"SMTP Server"},
    {"Email.SMTP.Port", L"Port of the SMTP Server"},
    {"Email.SMTP.RequiresAuthentication", L"Server Requires Authentication"},
    {"Email.STMP.UseSSL", L"Logon Using Secure Password Authentication"},

    {"Optimization.BlendMode", L"Blending Operation:"},
    {"Optimization.DeTessellation", L"De-tessellation Method:"},
    {"Optimization.NoTransparency", L"Don't Use Transparency Drawing"},
    {"Optimization.NoMaskedImages", L"Don't Use Masked Images"},
    {"Optimization.OptimizeImages", L"Enable Optimization of Images Sequences"},
    {"Optimization.SwapToDisk", L"Swap to Disk Images Larger Than:"},

    {"Overlay.Enable", L"Overlay with an existing PDF File"},
    {"Overlay.File", L"Overlay File:"},
    {"Overlay.Foreground", L"Place Overlay file as Foreground"},
    {"Overlay.Repeat", L"Repeat Options"},
    {"Overlay.HAlign", L"Horizontal Position"},
    {"Overlay.VAlign", L"Vertical Position"},
    {"Overlay.Fit", L"Fit Overlay Pages to Newly Created Document Pages"},
    {"Overlay.KeepAspect", L"Keep Aspect Ratio"},

    {"Security.Digisig.Enable", L"Use Certificate From File"},
    {"Security.Digisig.Reason", L"Reason for Signing:"},
    {"Security.Digisig.Location", L"Location:"},
    {"Security.Digisig.Image", L"Image:"},
    {"Security.Digisig.Left", L"Signature: Left Edge"},
    {"Security.Digisig.Top", L"Signature: Top Edge"},
    {"Security.Digisig.Width", L"Signature: Width"},
    {"Security.Digisig.Height", L"Signature: Height"},
};

inline constexpr std::string_view kPasswordReason =
    "a password, which everybody could read who can read the policy";
inline constexpr std::string_view kHiddenReason = "no page shows it";
inline constexpr std::string_view kPersonalReason = "each user's own";
inline constexpr std::string_view kOfDocumentReason = "each document's own";

inline constexpr NoPolicy kNoPolicies[] = {
    {"General.VP.FSPageMode", kHiddenReason},
    {"Security.UserPwd", kPasswordReason},
    {"Security.OwnerPwd", kPasswordReason},
    {"Links.Border.Color", "a colour, for which a policy has a bare number at most"},
    {"Info.Keywords", kOfDocumentReason},
    {"Info.Subject", kOfDocumentReason},
    {"Info.Title", kOfDocumentReason},
    {"Save.Type", kHiddenReason},
    {"Save.JobsGroupName", kHiddenReason},
    {"Save.LeaveGroup", kHiddenReason},
    {"Email.From", kPersonalReason},
    {"Email.Content", "a text of several lines, which a policy stores as several texts"},
    {"Email.SMTP.UserName", kPersonalReason},
    {"Email.SMTP.Password", kPasswordReason},
    {"Overlay.Password", kPasswordReason},
    {"Security.Digisig.PFXFile", kPersonalReason},
    {"Security.Digisig.PFXPassword", kPasswordReason},
    {"Security.Digisig.ContactInfo", kPersonalReason},
    {"Security.Digisig.Flags", "a sum of bits, for which a policy has a bare number at most"},
    {"Security.Digisig.Page", "-1 is the last page, and the numbers of a policy begin with 0"},
};

}  // namespace vmk::policy
