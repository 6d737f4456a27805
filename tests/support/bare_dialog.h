#pragma once

#include <windows.h>

#include <span>

#include "vmkctrl.h"

// What the system takes for the dialog's windows alone:
//
//     const LoadedModule module;
//     OpenBareDialog(module.get(), nullptr, AllPages);   // until somebody presses OK or Cancel

namespace vmk::test {

// The template of a page.
struct PageTemplate {
    PdfPrinterDialogPage bit;
    UINT id;
    const char* name;
};

// Those of all pages, in their order.
std::span<const PageTemplate> PageTemplates();

// Opens the templates of a loaded DLL with nobody behind them: those of the frame and of the pages, the
// panels of the Security page included, in the DLL's visual style. Where there is a Fonts page, the system's
// fonts are walked over once. Answers the button; throws std::runtime_error when something cannot be created.
INT_PTR OpenBareDialog(HMODULE module, HWND owner, PdfPrinterDialogPage pages);

}  // namespace vmk::test
