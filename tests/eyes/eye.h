#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/eyes/control.h"
#include "tests/eyes/finding.h"

// Looks at one open window as somebody would who reads and uses it:
//
//     Report report;
//     LookAt({.view = page.Handle()}, {.page = L"Save"}, report);
//     EXPECT_TRUE(report.findings.empty()) << Table(report.findings);
//
// For the thread of the window, which needs COM.

namespace vmk::test {

struct View {
    HWND view;
    HWND except = nullptr;           // a window inside it that is looked at by itself
    std::vector<HWND> buttons = {};  // buttons outside it that are there at the same time
};

void LookAt(const View& view, const Sight& sight, Report& report);

// Writes a picture of a window, with a frame around each control that something was found about, as a bitmap
// file. False when it cannot be written.
bool WritePicture(HWND window, const std::vector<HWND>& framed, const std::wstring& file);

}  // namespace vmk::test
