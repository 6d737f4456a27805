#pragma once

#include <cstdint>
#include <string>

namespace vmk {

// Program that is started on the finished file. One stored value holds all three parts (see fields.h).
struct RunApplication {
    std::int32_t Use = 0;          // flag: start a program at all
    std::int32_t WithoutPath = 1;  // flag: the default application for PDF files instead of Path
    std::wstring Path;

    bool operator==(const RunApplication&) const = default;
};

// Threshold for swapping large images to disk. One stored value holds both parts (see fields.h).
struct SwapToDisk {
    std::int32_t Enabled = 1;  // flag
    std::int32_t Megabytes = 1;

    bool operator==(const SwapToDisk&) const = default;
};

// Everything that the preferences dialog edits. A member's path spells the name under which it is stored
// (fields.h pairs the two); its initialiser is the one place of its default. Flags are 0 or 1 but keep
// whatever number was stored; choices.h tells what the numbers mean.
struct PrinterSettings {
    // Made and copied in many places: once in the binary is enough.
    PrinterSettings();
    ~PrinterSettings();
    PrinterSettings(const PrinterSettings&);
    PrinterSettings& operator=(const PrinterSettings&);
    PrinterSettings(PrinterSettings&&) noexcept;
    PrinterSettings& operator=(PrinterSettings&&) noexcept;

    struct PaperGroup {
        std::int32_t Nup = 1;       // choice: pages per sheet
        std::int32_t NupOrder = 0;  // choice; which order a number means depends on Nup

        bool operator==(const PaperGroup&) const = default;
    } Paper;

    // Room of the custom-forms group: never stored, reset with its bit.
    std::int32_t CustomForms = 0;

    struct GeneralGroup {
        std::int32_t PDFSpec = 4;     // choice: minor version of PDF 1.x
        std::int32_t PageLayout = 0;  // choice
        std::int32_t PageMode = 0;    // choice
        struct ViewerPreferences {
            std::int32_t HideToolbars = 0;  // flag
            std::int32_t HideMenubar = 0;   // flag
            std::int32_t HideUI = 0;        // flag
            std::int32_t ShowTitle = 0;     // flag
            std::int32_t Fit = 0;           // flag
            std::int32_t Center = 0;        // flag
            std::int32_t FSPageMode = 0;  // choice; no control shows it, it passes through from load to store

            bool operator==(const ViewerPreferences&) const = default;
        } VP;

        bool operator==(const GeneralGroup&) const = default;
    } General;

    struct CompressionGroup {
        std::int32_t Graphics = 1;  // flag
        std::int32_t ASCII = 0;     // flag
        std::int32_t Text = 1;      // flag
        struct ColorImages {
            std::int32_t Method = 1;        // choice
            std::int32_t JPEGQuality = 75;  // percent, 1 to 100

            bool operator==(const ColorImages&) const = default;
        } Color;
        struct IndexedImages {
            std::int32_t Method = 1;  // choice

            bool operator==(const IndexedImages&) const = default;
        } Indexed;
        struct MonoImages {
            std::int32_t Method = 1;  // choice

            bool operator==(const MonoImages&) const = default;
        } Mono;

        bool operator==(const CompressionGroup&) const = default;
    } Compression;

    // Downsample and Convert together are the group of the Graphics page.
    struct DownsampleGroup {
        struct Images {
            std::int32_t Use = 0;     // flag
            std::int32_t DPI = 96;    // dots per inch, 50 to 2400
            std::int32_t Method = 2;  // choice

            bool operator==(const Images&) const = default;
        } Color;
        Images Indexed;
        Images Mono;

        bool operator==(const DownsampleGroup&) const = default;
    } Downsample;

    struct ConvertGroup {
        struct Images {
            std::int32_t To = 0;      // choice
            std::int32_t Dither = 1;  // flag

            bool operator==(const Images&) const = default;
        } Color;
        Images Indexed;
        struct Drawings {
            std::int32_t To = 0;           // choice
            std::int32_t Threshold = 128;  // grey level that divides black from white, 1 to 255

            bool operator==(const Drawings&) const = default;
        } Drawing;

        bool operator==(const ConvertGroup&) const = default;
    } Convert;

    struct FontsGroup {
        struct EmbeddedFonts {
            std::int32_t All = 0;         // flag
            std::int32_t Protected = 1;   // flag: embed fonts marked as protected
            std::int32_t Use_Always = 0;  // flag
            // Lists of face names, joined by ";" without blanks and without a trailing separator.
            std::wstring Always;
            std::int32_t Use_Never = 1;  // flag
            std::wstring Never =
                L"Arial;Courier;Courier New;Helvetica;Symbol;Times;Times New Roman;ZapfDingbats";

            bool operator==(const EmbeddedFonts&) const = default;
        } Embedd;

        bool operator==(const FontsGroup&) const = default;
    } Fonts;

    struct WatermarksGroup {
        std::int32_t Print = 0;  // flag

        bool operator==(const WatermarksGroup&) const = default;
    } Watermarks;

    struct SecurityGroup {
        std::int32_t Use = 0;      // flag: encrypt the document
        std::wstring UserPwd;      // needed to open
        std::wstring OwnerPwd;     // needed to change permissions
        std::int32_t Level = 128;  // key length in bits: 40 or 128
        struct Permissions40 {
            std::int32_t AllowChanging = 0;  // flag
            std::int32_t AllowComments = 0;  // flag
            std::int32_t AllowPrinting = 0;  // flag
            std::int32_t AllowCopying = 0;   // flag

            bool operator==(const Permissions40&) const = default;
        } Bits40;
        struct Permissions128 {
            std::int32_t ContentAccess = 0;  // flag
            std::int32_t AllowCopying = 0;   // flag
            std::int32_t Changes = 0;        // choice
            std::int32_t Printing = 0;       // choice

            bool operator==(const Permissions128&) const = default;
        } Bits128;
        // Stored under Security.Digisig., but a group of its own with its own page and bit.
        struct DigitalSignature {
            std::int32_t Enable = 0;  // flag
            std::wstring PFXFile;     // path of the certificate file
            std::wstring PFXPassword;
            std::wstring Reason;
            std::wstring Location;
            std::wstring ContactInfo;
            std::wstring Image;          // path of the picture
            std::int32_t Flags = 0x300;  // bit set: what the visible signature shows
            std::int32_t Page = -1;      // -1 is the last page
            // The rectangle of the visible signature, in tenths of a millimetre.
            std::int32_t Left = 254;
            std::int32_t Top = 254;
            std::int32_t Width = 508;
            std::int32_t Height = 168;

            bool operator==(const DigitalSignature&) const = default;
        } Digisig;

        bool operator==(const SecurityGroup&) const = default;
    } Security;

    struct LinksGroup {
        struct BorderLine {
            std::int32_t Color = 0;   // 0x00BBGGRR
            std::int32_t Style = 0;   // choice
            std::int32_t Type = 0;    // choice
            std::int32_t Width = 10;  // tenths of a point

            bool operator==(const BorderLine&) const = default;
        } Border;
        std::int32_t Analize = 1;  // flag: detect web addresses
        struct LocalFiles {
            std::int32_t Analize = 0;  // flag: detect file names
            std::int32_t Check = 0;    // flag: link existing files only

            bool operator==(const LocalFiles&) const = default;
        } Files;

        bool operator==(const LinksGroup&) const = default;
    } Links;

    struct BookmarksGroup {
        std::int32_t Print = 0;       // flag: detect bookmarks
        std::int32_t Multiline = 1;   // flag
        std::int32_t MatchLevel = 0;  // flag: match a node regardless of its level

        bool operator==(const BookmarksGroup&) const = default;
    } Bookmarks;

    struct InfoGroup {
        std::int32_t Use = 1;  // flag: write the texts into the document
        std::wstring Author;
        std::wstring Creator;
        std::wstring Keywords;
        std::wstring Subject;
        std::wstring Title;
        std::wstring Extra;  // never stored, reset with the group

        bool operator==(const InfoGroup&) const = default;
    } Info;

    struct SaveGroup {
        std::int32_t UseSameFolder = 1;         // flag
        std::int32_t Type = 2;                  // choice; no control shows it
        std::int32_t ShowSaveDialog = 0;        // flag
        std::wstring FileName = L"%[DocName]";  // template with macros
        std::wstring Folder;
        std::int32_t WhenExists = 0;  // choice
        struct AutoNumbering {
            std::int32_t Start = 1;
            std::int32_t Digits = 3;  // 1 to 6

            bool operator==(const AutoNumbering&) const = default;
        } AutoNumber;
        struct Application {
            RunApplication Run;
            std::wstring Params = L"%f";  // command line; its load default is empty (load_defaults.h)

            bool operator==(const Application&) const = default;
        } App;
        std::wstring JobsGroupName;
        std::wstring LeaveGroup;

        bool operator==(const SaveGroup&) const = default;
    } Save;

    struct EmailGroup {
        std::int32_t Type = 0;  // choice
        std::int32_t ZIP = 0;   // flag
        std::wstring From;
        std::wstring To;
        std::wstring CC;
        std::wstring Subject;
        std::wstring Content;  // message body
        struct SmtpServer {
            std::wstring Address = L"127.0.0.1";
            std::wstring UserName;
            std::wstring Password;
            std::int32_t Port = 25;                   // 1 to 65535
            std::int32_t RequiresAuthentication = 0;  // flag

            bool operator==(const SmtpServer&) const = default;
        } SMTP;
        // Stored with the letters in this order; existing registry data relies on it.
        struct SmtpTransport {
            std::int32_t UseSSL = 0;  // flag

            bool operator==(const SmtpTransport&) const = default;
        } STMP;

        bool operator==(const EmailGroup&) const = default;
    } Email;

    // Room of the profiles group: never stored, reset with its bit.
    std::int32_t Profiles = 0;

    struct OptimizationGroup {
        std::int32_t BlendMode = 4;       // choice
        std::int32_t DeTessellation = 1;  // choice
        std::int32_t NoTransparency = 0;  // flag
        std::int32_t NoMaskedImages = 0;  // flag
        std::int32_t OptimizeImages = 1;  // flag
        vmk::SwapToDisk SwapToDisk;

        bool operator==(const OptimizationGroup&) const = default;
    } Optimization;

    struct OverlayGroup {
        std::int32_t Enable = 0;  // flag
        std::wstring File;        // path of the PDF file
        std::wstring Password;
        std::int32_t Foreground = 0;  // flag
        std::int32_t Repeat = 2;      // choice
        std::int32_t HAlign = 1;      // choice
        std::int32_t VAlign = 1;      // choice
        std::int32_t Fit = 0;         // flag
        std::int32_t KeepAspect = 0;  // flag

        bool operator==(const OverlayGroup&) const = default;
    } Overlay;

    bool operator==(const PrinterSettings&) const = default;
};

}  // namespace vmk
