"""python edit.py [KEY]: lets the user edit the settings of a key, and stores them on OK. Needs pywin32."""
import sys

import pythoncom
import win32com.client

ALL_PAGES, OK = -1, 1

# Importing pythoncom has made this thread a single-threaded apartment.
key = sys.argv[1] if len(sys.argv) > 1 else ""
preferences = win32com.client.Dispatch("vmkctrl.PdfPrinterPreferences")
preferences.InitFromRegistry(ALL_PAGES, key)
preferences.EnablePage(ALL_PAGES)
preferences.SetTitle("Edited by Python")
exit_code = win32com.client.VARIANT(pythoncom.VT_BYREF | pythoncom.VT_I4, -1)
preferences.OpenDialog(0, exit_code)
if exit_code.value == OK:
    preferences.StoreInRegistry(ALL_PAGES, key)
print("exit code", exit_code.value)
