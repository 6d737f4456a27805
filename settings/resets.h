#pragma once

#include "settings/printer_settings.h"

// What a reset of each group takes from a record of defaults. What is missing here keeps its value, on
// purpose: hosts rely on it.

namespace vmk::resets {

inline void Nothing(PrinterSettings&, const PrinterSettings&) {}

inline void Paper(PrinterSettings& to, const PrinterSettings& from) {
    to.Paper.Nup = from.Paper.Nup;
    to.Paper.NupOrder = from.Paper.NupOrder;
}

inline void CustomForms(PrinterSettings& to, const PrinterSettings& from) {
    to.CustomForms = from.CustomForms;
    to.General.PDFSpec = from.General.PDFSpec;
}

inline void General(PrinterSettings& to, const PrinterSettings& from) {
    to.General.PDFSpec = from.General.PDFSpec;
    to.General.PageLayout = from.General.PageLayout;
}

inline void Compression(PrinterSettings& to, const PrinterSettings& from) {
    to.Compression.Graphics = from.Compression.Graphics;
    to.Compression.ASCII = from.Compression.ASCII;
}

inline void Graphics(PrinterSettings& to, const PrinterSettings& from) {
    to.Downsample.Color.Use = from.Downsample.Color.Use;
    to.Downsample.Color.DPI = from.Downsample.Color.DPI;
}

inline void Fonts(PrinterSettings& to, const PrinterSettings& from) {
    to.Fonts.Embedd.All = from.Fonts.Embedd.All;
    to.Fonts.Embedd.Protected = from.Fonts.Embedd.Protected;
    to.Fonts.Embedd.Always = from.Fonts.Embedd.Always;
    to.Fonts.Embedd.Never = from.Fonts.Embedd.Never;
}

inline void Watermarks(PrinterSettings& to, const PrinterSettings& from) {
    to.Watermarks.Print = from.Watermarks.Print;
}

inline void Security(PrinterSettings& to, const PrinterSettings& from) {
    to.Security.Use = from.Security.Use;
    to.Security.Bits40.AllowChanging = from.Security.Bits40.AllowChanging;
    to.Security.Bits40.AllowComments = from.Security.Bits40.AllowComments;
    to.Security.Bits128.ContentAccess = from.Security.Bits128.ContentAccess;
    to.Security.Bits128.AllowCopying = from.Security.Bits128.AllowCopying;
    to.Security.UserPwd = from.Security.UserPwd;
    to.Security.OwnerPwd = from.Security.OwnerPwd;
}

inline void Links(PrinterSettings& to, const PrinterSettings& from) {
    to.Links.Border.Color = from.Links.Border.Color;
    to.Links.Border.Style = from.Links.Border.Style;
}

inline void Bookmarks(PrinterSettings& to, const PrinterSettings& from) {
    to.Bookmarks.Print = from.Bookmarks.Print;
    to.Bookmarks.Multiline = from.Bookmarks.Multiline;
}

inline void DocumentInfo(PrinterSettings& to, const PrinterSettings& from) {
    to.Info = from.Info;
}

inline void Save(PrinterSettings& to, const PrinterSettings& from) {
    to.Save.UseSameFolder = from.Save.UseSameFolder;
    to.Save.Type = from.Save.Type;
    to.Save.FileName = from.Save.FileName;
    to.Save.Folder = from.Save.Folder;
    to.Save.App.Run.Path = from.Save.App.Run.Path;
    to.Save.App.Params = from.Save.App.Params;
    to.Save.JobsGroupName = from.Save.JobsGroupName;
    to.Save.LeaveGroup = from.Save.LeaveGroup;
}

inline void Email(PrinterSettings& to, const PrinterSettings& from) {
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
}

inline void Profiles(PrinterSettings& to, const PrinterSettings& from) {
    to.Profiles = from.Profiles;
    to.Optimization.BlendMode = from.Optimization.BlendMode;
}

}  // namespace vmk::resets
