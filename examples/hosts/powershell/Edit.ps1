# Edit.ps1 [KEY]: lets the user edit the settings of a key, and stores them on OK.
# Windows PowerShell runs scripts in a single-threaded apartment; start PowerShell 7 with -STA.
param([string]$Key = '')

$AllPages = -1
$OK = 1

$preferences = New-Object -ComObject vmkctrl.PdfPrinterPreferences
$preferences.InitFromRegistry($AllPages, $Key)
$preferences.EnablePage($AllPages)
$preferences.SetTitle('Edited by PowerShell')
[int]$exitCode = -1
$preferences.OpenDialog(0, [ref]$exitCode)
if ($exitCode -eq $OK) { $preferences.StoreInRegistry($AllPages, $Key) }
"exit code $exitCode"
[void][Runtime.InteropServices.Marshal]::ReleaseComObject($preferences)
