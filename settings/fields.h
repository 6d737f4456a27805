#pragma once

#include "settings/page_set.h"
#include "settings/printer_settings.h"

// The stored name of every setting, beside the member that holds it, in the order of storing.
//
// Each list is called with a visitor and any number of records; the visitor gets each stored name with that
// member of every record: visit("Paper.Nup", first.Paper.Nup, second.Paper.Nup, ...). The kind of a setting
// is the type of its member: std::int32_t (number), std::wstring (text), or one of the special forms
// RunApplication and SwapToDisk, which share one stored value between several members.

namespace vmk::fields {

void Paper(auto&& visit, auto&... record) {
    visit("Paper.Nup", record.Paper.Nup...);
    visit("Paper.NupOrder", record.Paper.NupOrder...);
}

void General(auto&& visit, auto&... record) {
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
}

void Compression(auto&& visit, auto&... record) {
    visit("Compression.Graphics", record.Compression.Graphics...);
    visit("Compression.ASCII", record.Compression.ASCII...);
    visit("Compression.Text", record.Compression.Text...);
    visit("Compression.Color.Method", record.Compression.Color.Method...);
    visit("Compression.Color.JPEGQuality", record.Compression.Color.JPEGQuality...);
    visit("Compression.Indexed.Method", record.Compression.Indexed.Method...);
    visit("Compression.Mono.Method", record.Compression.Mono.Method...);
}

void Graphics(auto&& visit, auto&... record) {
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
}

void Fonts(auto&& visit, auto&... record) {
    visit("Fonts.Embedd.All", record.Fonts.Embedd.All...);
    visit("Fonts.Embedd.Protected", record.Fonts.Embedd.Protected...);
    visit("Fonts.Embedd.Use_Always", record.Fonts.Embedd.Use_Always...);
    visit("Fonts.Embedd.Always", record.Fonts.Embedd.Always...);
    visit("Fonts.Embedd.Use_Never", record.Fonts.Embedd.Use_Never...);
    visit("Fonts.Embedd.Never", record.Fonts.Embedd.Never...);
}

void Watermarks(auto&& visit, auto&... record) {
    visit("Watermarks.Print", record.Watermarks.Print...);
}

void Security(auto&& visit, auto&... record) {
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
}

void Links(auto&& visit, auto&... record) {
    visit("Links.Border.Color", record.Links.Border.Color...);
    visit("Links.Border.Style", record.Links.Border.Style...);
    visit("Links.Border.Type", record.Links.Border.Type...);
    visit("Links.Border.Width", record.Links.Border.Width...);
    visit("Links.Analize", record.Links.Analize...);
    visit("Links.Files.Analize", record.Links.Files.Analize...);
    visit("Links.Files.Check", record.Links.Files.Check...);
}

void Bookmarks(auto&& visit, auto&... record) {
    visit("Bookmarks.Print", record.Bookmarks.Print...);
    visit("Bookmarks.Multiline", record.Bookmarks.Multiline...);
    visit("Bookmarks.MatchLevel", record.Bookmarks.MatchLevel...);
}

// Info.Extra has no stored name.
void DocumentInfo(auto&& visit, auto&... record) {
    visit("Info.Use", record.Info.Use...);
    visit("Info.Author", record.Info.Author...);
    visit("Info.Creator", record.Info.Creator...);
    visit("Info.Keywords", record.Info.Keywords...);
    visit("Info.Subject", record.Info.Subject...);
    visit("Info.Title", record.Info.Title...);
}

void Save(auto&& visit, auto&... record) {
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
}

void Email(auto&& visit, auto&... record) {
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
}

void Optimization(auto&& visit, auto&... record) {
    visit("Optimization.BlendMode", record.Optimization.BlendMode...);
    visit("Optimization.DeTessellation", record.Optimization.DeTessellation...);
    visit("Optimization.NoTransparency", record.Optimization.NoTransparency...);
    visit("Optimization.NoMaskedImages", record.Optimization.NoMaskedImages...);
    visit("Optimization.OptimizeImages", record.Optimization.OptimizeImages...);
    visit("Optimization.SwapToDisk", record.Optimization.SwapToDisk...);
}

void Overlay(auto&& visit, auto&... record) {
    visit("Overlay.Enable", record.Overlay.Enable...);
    visit("Overlay.File", record.Overlay.File...);
    visit("Overlay.Password", record.Overlay.Password...);
    visit("Overlay.Foreground", record.Overlay.Foreground...);
    visit("Overlay.Repeat", record.Overlay.Repeat...);
    visit("Overlay.HAlign", record.Overlay.HAlign...);
    visit("Overlay.VAlign", record.Overlay.VAlign...);
    visit("Overlay.Fit", record.Overlay.Fit...);
    visit("Overlay.KeepAspect", record.Overlay.KeepAspect...);
}

void DigitalSign(auto&& visit, auto&... record) {
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
}

// Walks the lists of the groups whose bits are set, in ascending order of the bits.
void Walk(PageSet groups, auto&& visit, auto&... record) {
    if (groups & page_bit::kPaper) Paper(visit, record...);
    if (groups & page_bit::kGeneral) General(visit, record...);
    if (groups & page_bit::kCompression) Compression(visit, record...);
    if (groups & page_bit::kGraphics) Graphics(visit, record...);
    if (groups & page_bit::kFonts) Fonts(visit, record...);
    if (groups & page_bit::kWatermarks) Watermarks(visit, record...);
    if (groups & page_bit::kSecurity) Security(visit, record...);
    if (groups & page_bit::kLinks) Links(visit, record...);
    if (groups & page_bit::kBookmarks) Bookmarks(visit, record...);
    if (groups & page_bit::kDocumentInfo) DocumentInfo(visit, record...);
    if (groups & page_bit::kSave) Save(visit, record...);
    if (groups & page_bit::kEmail) Email(visit, record...);
    if (groups & page_bit::kOptimization) Optimization(visit, record...);
    if (groups & page_bit::kOverlay) Overlay(visit, record...);
    if (groups & page_bit::kDigitalSign) DigitalSign(visit, record...);
}

}  // namespace vmk::fields
