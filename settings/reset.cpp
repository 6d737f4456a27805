#include "settings/reset.h"

namespace vmk {
namespace {

struct PartialReset {
    PageSet bit;
    void (*copy)(PrinterSettings& to, const PrinterSettings& from);
};

// What is missing here keeps its value, on purpose: hosts rely on it.
constexpr PartialReset kResets[] = {
    {page_bit::kPaper,
     [](auto& to, const auto& from) {
         to.Paper.Nup = from.Paper.Nup;
         to.Paper.NupOrder = from.Paper.NupOrder;
     }},
    {page_bit::kCustomForms,
     [](auto& to, const auto& from) {
         to.CustomForms = from.CustomForms;
         to.General.PDFSpec = from.General.PDFSpec;
     }},
    {page_bit::kGeneral,
     [](auto& to, const auto& from) {
         to.General.PDFSpec = from.General.PDFSpec;
         to.General.PageLayout = from.General.PageLayout;
     }},
    {page_bit::kCompression,
     [](auto& to, const auto& from) {
         to.Compression.Graphics = from.Compression.Graphics;
         to.Compression.ASCII = from.Compression.ASCII;
     }},
    {page_bit::kGraphics,
     [](auto& to, const auto& from) {
         to.Downsample.Color.Use = from.Downsample.Color.Use;
         to.Downsample.Color.DPI = from.Downsample.Color.DPI;
     }},
    {page_bit::kFonts,
     [](auto& to, const auto& from) {
         to.Fonts.Embedd.All = from.Fonts.Embedd.All;
         to.Fonts.Embedd.Protected = from.Fonts.Embedd.Protected;
         to.Fonts.Embedd.Always = from.Fonts.Embedd.Always;
         to.Fonts.Embedd.Never = from.Fonts.Embedd.Never;
     }},
    {page_bit::kWatermarks, [](auto& to, const auto& from) { to.Watermarks.Print = from.Watermarks.Print; }},
    {page_bit::kSecurity,
     [](auto& to, const auto& from) {
         to.Security.Use = from.Security.Use;
         to.Security.Bits40.AllowChanging = from.Security.Bits40.AllowChanging;
         to.Security.Bits40.AllowComments = from.Security.Bits40.AllowComments;
         to.Security.Bits128.ContentAccess = from.Security.Bits128.ContentAccess;
         to.Security.Bits128.AllowCopying = from.Security.Bits128.AllowCopying;
         to.Security.UserPwd = from.Security.UserPwd;
         to.Security.OwnerPwd = from.Security.OwnerPwd;
     }},
    {page_bit::kLinks,
     [](auto& to, const auto& from) {
         to.Links.Border.Color = from.Links.Border.Color;
         to.Links.Border.Style = from.Links.Border.Style;
     }},
    {page_bit::kBookmarks,
     [](auto& to, const auto& from) {
         to.Bookmarks.Print = from.Bookmarks.Print;
         to.Bookmarks.Multiline = from.Bookmarks.Multiline;
     }},
    {page_bit::kDocumentInfo, [](auto& to, const auto& from) { to.Info = from.Info; }},
    {page_bit::kSave,
     [](auto& to, const auto& from) {
         to.Save.UseSameFolder = from.Save.UseSameFolder;
         to.Save.Type = from.Save.Type;
         to.Save.FileName = from.Save.FileName;
         to.Save.Folder = from.Save.Folder;
         to.Save.App.Run.Path = from.Save.App.Run.Path;
         to.Save.App.Params = from.Save.App.Params;
         to.Save.JobsGroupName = from.Save.JobsGroupName;
         to.Save.LeaveGroup = from.Save.LeaveGroup;
     }},
    {page_bit::kEmail,
     [](auto& to, const auto& from) {
         to.Email.Type = from.Email.Type;
         to.Email.ZIP = from.Email.ZIP;
         to.Email.From = from.Email.From;
         to.Email.To = from.Email.To;
         to.Email.CC = from.Email.CC;
         to.Email.Subject = from.Email.Subject;
         to.Email.Content = from.Email.Content;
         to.Email.SMTP.Address = from.Email.SMTP.Address;
         to.Email.SMTP.UserName = from.Email.SMTP.UserName;
         to.Email.SMTP.Password = from.Email.SMTP.Password;
     }},
    {page_bit::kProfiles,
     [](auto& to, const auto& from) {
         to.Profiles = from.Profiles;
         to.Optimization.BlendMode = from.Optimization.BlendMode;
     }},
};

}  // namespace

void ResetToDefaults(PrinterSettings& settings, PageSet groups) {
    const PrinterSettings defaults;
    for (const PartialReset& reset : kResets)
        if (groups & reset.bit) reset.copy(settings, defaults);
}

}  // namespace vmk
