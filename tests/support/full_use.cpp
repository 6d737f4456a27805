#include "tests/support/full_use.h"

namespace vmk::test {

PrinterSettings SettingsInFullUse() {
    PrinterSettings settings;
    settings.Fonts.Embedd.Never.clear();
    for (auto* const images :
         {&settings.Downsample.Color, &settings.Downsample.Indexed, &settings.Downsample.Mono})
        images->Use = 1;
    settings.Convert.Color.To = settings.Convert.Indexed.To = settings.Convert.Drawing.To = 2;
    settings.Paper.Nup = 2;
    settings.Overlay.Enable = settings.Overlay.Fit = 1;
    settings.Security.Use = 1;
    settings.Security.UserPwd = settings.Security.OwnerPwd = L"secret";
    settings.Security.Digisig.Enable = 1;
    settings.Security.Digisig.Flags = 0x10;
    settings.Links.Files.Analize = 1;
    settings.Links.Border.Type = 1;
    settings.Bookmarks.Print = 1;
    settings.Save.UseSameFolder = 0;
    settings.Save.WhenExists = 2;
    settings.Save.App.Run = {.Use = 1, .WithoutPath = 0, .Path = L"C:\\a.exe"};
    settings.Email.Type = 3;
    return settings;
}

}  // namespace vmk::test
