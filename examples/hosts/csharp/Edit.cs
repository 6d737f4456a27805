// Edit [KEY]: lets the user edit the settings of a key, and stores them on OK.
//
//     csc /platform:x64 Edit.cs
//
// The interface is written down here as the type library has it; tlbimp vmkctrl.tlb makes an assembly of it instead.

using System;
using System.Runtime.InteropServices;

[Flags]
public enum PdfPrinterDialogPage
{
    AllPages = -1,
    Paper = 0x1,
    Watermarks = 0x40
}

[ComImport, Guid("FA1B9B7A-AA93-48A6-9918-60E8B1F53B1C"), InterfaceType(ComInterfaceType.InterfaceIsDual)]
public interface IPdfPrinterPreferences
{
    [DispId(1)] void OpenDialog(int lang_id, out int exitCode);
    [DispId(2)] void EnablePage(PdfPrinterDialogPage page_id);
    [DispId(3)] void DisablePage(PdfPrinterDialogPage page_id);
    [DispId(4)] void UseDefaultValues(PdfPrinterDialogPage page_id);
    [DispId(5)] void InitFromRegistry(PdfPrinterDialogPage page_id, [MarshalAs(UnmanagedType.BStr)] string sub_key);
    [DispId(6)] void StoreInRegistry(PdfPrinterDialogPage page_id, [MarshalAs(UnmanagedType.BStr)] string sub_path);
    [DispId(7)] void SetTitle([MarshalAs(UnmanagedType.BStr)] string WindowTitle);
}

[ComImport, Guid("2EE01CFA-139F-431E-BB1D-5E56B4DCEC18")]
public class PdfPrinterPreferences
{
}

public static class Program
{
    private const int OK = 1;

    // The object belongs to the thread that has made it, which has to be a single-threaded apartment.
    [STAThread]
    public static int Main(string[] arguments)
    {
        string key = arguments.Length > 0 ? arguments[0] : "";
        var preferences = (IPdfPrinterPreferences)new PdfPrinterPreferences();
        preferences.InitFromRegistry(PdfPrinterDialogPage.AllPages, key);
        preferences.EnablePage(PdfPrinterDialogPage.AllPages);
        preferences.SetTitle("Edited by C#");
        int exitCode;
        preferences.OpenDialog(0, out exitCode);
        if (exitCode == OK) preferences.StoreInRegistry(PdfPrinterDialogPage.AllPages, key);
        Console.WriteLine("exit code " + exitCode);
        // Not before the collector comes round: the DLL can go only when the object has gone.
        Marshal.FinalReleaseComObject(preferences);
        return 0;
    }
}
