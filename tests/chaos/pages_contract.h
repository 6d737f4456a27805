#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "settings/page_set.h"
#include "settings/printer_settings.h"

// What a page is to show of any record, valid or not, and what it is to store of that.

namespace vmk::test {

// What is not as it should be, in words; empty when nothing is wrong.
using Findings = std::vector<std::string>;

// Compares what is on screen: a page of the dialog, or the window of the mail server's settings.
void CheckPage(HWND page, PageSet bit, const PrinterSettings& record, Findings& findings);
void CheckMailServer(HWND window, const PrinterSettings& record, Findings& findings);

// The record after a page has shown it and stored it, nothing having been touched, and after the window of
// the mail server's settings, that was open over the page of e-mail, was left with OK.
PrinterSettings StoredByPage(PageSet bit, const PrinterSettings& record);
PrinterSettings StoredByMailServer(const PrinterSettings& record);

}  // namespace vmk::test
