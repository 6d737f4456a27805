#pragma once

// The stored name of every setting, beside the member that holds it, in the order of storing.
//
// Each list is called with a visitor and any number of records; the visitor gets each stored name with that
// member of every record: visit("Paper.Nup", first.Paper.Nup, second.Paper.Nup, ...). Without a record it
// gets the names alone. The kind of a setting is the type of its member: std::int32_t (number), std::wstring
// (text), or one of the special forms RunApplication and SwapToDisk, which share one stored value between
// several members.
//
// The lists are objects, so that the table of groups can hold them; WalkFields in groups.h walks them.

namespace vmk::fields {

// A group of which nothing is stored.
inline constexpr auto kNone = [](auto&&, auto&...) {};

inline constexpr auto kPaper = [](auto&& visit, auto&... record) {
    visit("Paper.Nup", record.Paper.Nup...);
    visit("Paper.NupOrder", record.Paper.NupOrder...);
};

inline constexpr auto kGeneral = [](auto&& visit, auto&... record) {
    visit("General.PDFSpec", record.General.PDFSpec...);
    visit("General.PageLayout", record.General.PageLayout...);
    visit("General.PageMode", record.General.PageMode...);
    visit("General.VP.HideToolbars", record.General.VP.HideToolbars...);
    visit("General.VP.HideMenubar", record.General.VP.HideMenubar...);
    visit("General.VP.HideUI", record.General.VP.HideUI...);
    visit("General.VP.ShowTitle", record.General.VP.ShowTitle...);
    visit("General.VP.Fit", record.General.VP.Fit...);
    visit("General.VP.Center", record.General.VP.Center...);
    visit("General.VP.FSPageMode", record.General.VP.FSPageMode...);
};

inline constexpr auto kCompression = [](auto&& visit, auto&... record) {
    visit("Compression.Graphics", record.Compression.Graphics...);
    visit("Compression.ASCII", record.Compression.ASCII...);
    visit("Compression.Text", record.Compression.Text...);
    visit("Compression.Color.Method", record.Compression.Color.Method...);
    visit("Compression.Color.JPEGQuality", record.Compression.Color.JPEGQuality...);
    visit("Compression.Indexed.Method", record.Compression.Indexed.Method...);
    visit("Compression.Mono.Method", record.Compression.Mono.Method...);
};

inline constexpr auto kGraphics = [](auto&& visit, auto&... record) {
    visit("Downsample.Color.Use", record.Downsample.Color.Use...);
    visit("Downsample.Color.DPI", record.Downsample.Color.DPI...);
    visit("Downsample.Color.Method", record.Downsample.Color.Method...);
    visit("Downsample.Indexed.Use", record.Downsample.Indexed.Use...);
    visit("Downsample.Indexed.DPI", record.Downsample.Indexed.DPI...);
    visit("Downsample.Indexed.Method", record.Downsample.Indexed.Method...);
    visit("Downsample.Mono.Use", record.Downsample.Mono.Use...);
    visit("Downsample.Mono.DPI", record.Downsample.Mono.DPI...);
    visit("Downsample.Mono.Method", record.Downsample.Mono.Method...);
    visit("Convert.Color.To", record.Convert.Color.To...);
    visit("Convert.Color.Dither", record.Convert.Color.Dither...);
    visit("Convert.Indexed.To", record.Convert.Indexed.To...);
    visit("Convert.Indexed.Dither", record.Convert.Indexed.Dither...);
    visit("Convert.Drawing.To", record.Convert.Drawing.To...);
    visit("Convert.Drawing.Threshold", record.Convert.Drawing.Threshold...);
};

inline constexpr auto kFonts = [](auto&& visit, auto&... record) {
    visit("Fonts.Embedd.All", record.Fonts.Embedd.All...);
    visit("Fonts.Embedd.Protected", record.Fonts.Embedd.Protected...);
    visit("Fonts.Embedd.Use_Always", record.Fonts.Embedd.Use_Always...);
    visit("Fonts.Embedd.Always", record.Fonts.Embedd.Always...);
    visit("Fonts.Embedd.Use_Never", record.Fonts.Embedd.Use_Never...);
    visit("Fonts.Embedd.Never", record.Fonts.Embedd.Never...);
};

inline constexpr auto kWatermarks = [](auto&& visit, auto&... record) {
    visit("Watermarks.Print", record.Watermarks.Print...);
};

inline constexpr auto kSecurity = [](auto&& visit, auto&... record) {
    visit("Security.Use", record.Security.Use...);
    visit("Security.UserPwd", record.Security.UserPwd...);
    visit("Security.OwnerPwd", record.Security.OwnerPwd...);
    visit("Security.Level", record.Security.Level...);
    visit("Security.40.AllowChanging", record.Security.Bits40.AllowChanging...);
    visit("Security.40.AllowComments", record.Security.Bits40.AllowComments...);
    visit("Security.40.AllowPrinting", record.Security.Bits40.AllowPrinting...);
    visit("Security.40.AllowCopying", record.Security.Bits40.AllowCopying...);
    visit("Security.128.ContentAccess", record.Security.Bits128.ContentAccess...);
    visit("Security.128.AllowCopying", record.Security.Bits128.AllowCopying...);
    visit("Security.128.Changes", record.Security.Bits128.Changes...);
    visit("Security.128.Printing", record.Security.Bits128.Printing...);
};

inline constexpr auto kLinks = [](auto&& visit, auto&... record) {
    visit("Links.Border.Color", record.Links.Border.Color...);
    visit("Links.Border.Style", record.Links.Border.Style...);
    visit("Links.Border.Type", record.Links.Border.Type...);
    visit("Links.Border.Width", record.Links.Border.Width...);
    visit("Links.Analize", record.Links.Analize...);
    visit("Links.Files.Analize", record.Links.Files.Analize...);
    visit("Links.Files.Check", record.Links.Files.Check...);
};

inline constexpr auto kBookmarks = [](auto&& visit, auto&... record) {
    visit("Bookmarks.Print", record.Bookmarks.Print...);
    visit("Bookmarks.Multiline", record.Bookmarks.Multiline...);
    visit("Bookmarks.MatchLevel", record.Bookmarks.MatchLevel...);
};

// Info.Extra has no stored name.
inline constexpr auto kDocumentInfo = [](auto&& visit, auto&... record) {
    visit("Info.Use", record.Info.Use...);
    visit("Info.Author", record.Info.Author...);
    visit("Info.Creator", record.Info.Creator...);
    visit("Info.Keywords", record.Info.Keywords...);
    visit("Info.Subject", record.Info.Subject...);
    visit("Info.Title", record.Info.Title...);
};

inline constexpr auto kSave = [](auto&& visit, auto&... record) {
    visit("Save.UseSameFolder", record.Save.UseSameFolder...);
    visit("Save.Type", record.Save.Type...);
    visit("Save.ShowSaveDialog", record.Save.ShowSaveDialog...);
    visit("Save.FileName", record.Save.FileName...);
    visit("Save.Folder", record.Save.Folder...);
    visit("Save.WhenExists", record.Save.WhenExists...);
    visit("Save.AutoNumber.Start", record.Save.AutoNumber.Start...);
    visit("Save.AutoNumber.Digits", record.Save.AutoNumber.Digits...);
    visit("Save.App.Run", record.Save.App.Run...);
    visit("Save.App.Params", record.Save.App.Params...);
    visit("Save.JobsGroupName", record.Save.JobsGroupName...);
    visit("Save.LeaveGroup", record.Save.LeaveGroup...);
};

inline constexpr auto kEmail = [](auto&& visit, auto&... record) {
    visit("Email.Type", record.Email.Type...);
    visit("Email.ZIP", record.Email.ZIP...);
    visit("Email.From", record.Email.From...);
    visit("Email.To", record.Email.To...);
    visit("Email.CC", record.Email.CC...);
    visit("Email.Subject", record.Email.Subject...);
    visit("Email.Content", record.Email.Content...);
    visit("Email.SMTP.Address", record.Email.SMTP.Address...);
    visit("Email.SMTP.UserName", record.Email.SMTP.UserName...);
    visit("Email.SMTP.Password", record.Email.SMTP.Password...);
    visit("Email.SMTP.Port", record.Email.SMTP.Port...);
    visit("Email.SMTP.RequiresAuthentication", record.Email.SMTP.RequiresAuthentication...);
    visit("Email.STMP.UseSSL", record.Email.STMP.UseSSL...);
};

inline constexpr auto kOptimization = [](auto&& visit, auto&... record) {
    visit("Optimization.BlendMode", record.Optimization.BlendMode...);
    visit("Optimization.DeTessellation", record.Optimization.DeTessellation...);
    visit("Optimization.NoTransparency", record.Optimization.NoTransparency...);
    visit("Optimization.NoMaskedImages", record.Optimization.NoMaskedImages...);
    visit("Optimization.OptimizeImages", record.Optimization.OptimizeImages...);
    visit("Optimization.SwapToDisk", record.Optimization.SwapToDisk...);
};

inline constexpr auto kOverlay = [](auto&& visit, auto&... record) {
    visit("Overlay.Enable", record.Overlay.Enable...);
    visit("Overlay.File", record.Overlay.File...);
    visit("Overlay.Password", record.Overlay.Password...);
    visit("Overlay.Foreground", record.Overlay.Foreground...);
    visit("Overlay.Repeat", record.Overlay.Repeat...);
    visit("Overlay.HAlign", record.Overlay.HAlign...);
    visit("Overlay.VAlign", record.Overlay.VAlign...);
    visit("Overlay.Fit", record.Overlay.Fit...);
    visit("Overlay.KeepAspect", record.Overlay.KeepAspect...);
};

inline constexpr auto kDigitalSign = [](auto&& visit, auto&... record) {
    visit("Security.Digisig.Enable", record.Security.Digisig.Enable...);
    visit("Security.Digisig.PFXFile", record.Security.Digisig.PFXFile...);
    visit("Security.Digisig.PFXPassword", record.Security.Digisig.PFXPassword...);
    visit("Security.Digisig.Reason", record.Security.Digisig.Reason...);
    visit("Security.Digisig.Location", record.Security.Digisig.Location...);
    visit("Security.Digisig.ContactInfo", record.Security.Digisig.ContactInfo...);
    visit("Security.Digisig.Image", record.Security.Digisig.Image...);
    visit("Security.Digisig.Flags", record.Security.Digisig.Flags...);
    visit("Security.Digisig.Page", record.Security.Digisig.Page...);
    visit("Security.Digisig.Left", record.Security.Digisig.Left...);
    visit("Security.Digisig.Top", record.Security.Digisig.Top...);
    visit("Security.Digisig.Width", record.Security.Digisig.Width...);
    visit("Security.Digisig.Height", record.Security.Digisig.Height...);
};

}  // namespace vmk::fields
