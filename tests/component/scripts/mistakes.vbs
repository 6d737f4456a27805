Option Explicit
Dim preferences
Set preferences = CreateObject("vmkctrl.PdfPrinterPreferences")

Sub Report(what)
    If Err.Number = 0 Then
        WScript.Echo what & ": accepted"
    Else
        WScript.Echo what & ": refused"
    End If
    Err.Clear
End Sub

On Error Resume Next
preferences.EnablePage
Report "too few"
preferences.EnablePage 1, 2
Report "too many"
preferences.EnablePage "Paper"
Report "wrong type"
preferences.EnableEverything 1
Report "no such method"
WScript.Echo "done"
