#include "tests/support/bare_dialog.h"

#include <stdexcept>
#include <utility>

#include "resources/ids/bookmarks.h"
#include "resources/ids/compression.h"
#include "resources/ids/digital_signature.h"
#include "resources/ids/document_info.h"
#include "resources/ids/email.h"
#include "resources/ids/fonts.h"
#include "resources/ids/general.h"
#include "resources/ids/graphics.h"
#include "resources/ids/links.h"
#include "resources/ids/main.h"
#include "resources/ids/optimization.h"
#include "resources/ids/overlay.h"
#include "resources/ids/paper.h"
#include "resources/ids/save.h"
#include "resources/ids/security.h"
#include "resources/ids/watermarks.h"

namespace vmk::test {
namespace {

constexpr int kManifest = 2;

constexpr PageTemplate kPages[] = {
    {Paper, IDD_PAPER, "Paper"},
    {CustomForms, IDD_CUSTOM_FORMS, "Custom Forms"},
    {General, IDD_GENERAL, "General"},
    {Compression, IDD_COMPRESSION, "Compression"},
    {Graphics, IDD_GRAPHICS, "Graphics"},
    {Fonts, IDD_FONTS, "Fonts"},
    {Watermarks, IDD_WATERMARKS, "Watermarks"},
    {Overlay, IDD_OVERLAY, "Overlay"},
    {Security, IDD_SECURITY, "Security"},
    {DigitalSign, IDD_DIGITAL_SIGNATURE, "Digital Signature"},
    {Links, IDD_LINKS, "Links"},
    {Bookmarks, IDD_BOOKMARKS, "Bookmarks"},
    {DocumentInfo, IDD_DOCUMENT_INFO, "Document Info"},
    {Save, IDD_SAVE, "Save"},
    {eMail, IDD_EMAIL, "e-Mail"},
    {Profiles, IDD_PROFILES, "Profiles"},
    {Optimization, IDD_OPTIMIZATION, "Optimization"},
};

// The bare dialog that is being opened on some thread.
struct Wanted {
    HMODULE module;
    PdfPrinterDialogPage pages;
};

INT_PTR CALLBACK DoNothing(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

HWND Create(HMODULE module, UINT templateId, HWND parent) {
    return CreateDialogParamW(module, MAKEINTRESOURCEW(templateId), parent, DoNothing, 0);
}

int CALLBACK PassOver(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM) {
    return 1;
}

void WalkFonts() {
    HDC screen = GetDC(nullptr);
    LOGFONTW every{};
    every.lfCharSet = DEFAULT_CHARSET;
    EnumFontFamiliesExW(screen, &every, PassOver, 0, 0);
    ReleaseDC(nullptr, screen);
}

void FillFrame(HWND dialog, const Wanted& wanted) {
    HWND frame = GetDlgItem(Create(wanted.module, IDD_NAVIGATOR, dialog), IDC_NAVIGATOR_FRAME);
    bool isFirst = true;
    for (const PageTemplate& row : kPages) {
        if (!(wanted.pages & row.bit)) continue;
        HWND page = Create(wanted.module, row.id, frame);
        if (std::exchange(isFirst, false)) ShowWindow(page, SW_SHOW);
        if (row.bit == Fonts) WalkFonts();
        if (row.bit != Security) continue;
        HWND panels = GetDlgItem(page, IDC_SECURITY_PANELS);
        Create(wanted.module, IDD_SECURITY_40, panels);
        Create(wanted.module, IDD_SECURITY_128, panels);
    }
}

INT_PTR CALLBACK FrameProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_INITDIALOG) FillFrame(hwnd, *reinterpret_cast<const Wanted*>(lParam));
    const WORD button = LOWORD(wParam);
    if (msg == WM_COMMAND && (button == IDOK || button == IDCANCEL)) EndDialog(hwnd, button);
    return FALSE;
}

// The visual style of the DLL's manifest, which the component's dialog brings along by itself.
class VisualStyleOf {
  public:
    explicit VisualStyleOf(HMODULE module) {
        ACTCTXW context{};
        context.cbSize = sizeof(context);
        context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        context.hModule = module;
        context.lpResourceName = MAKEINTRESOURCEW(kManifest);
        m_context = CreateActCtxW(&context);
        if (m_context == INVALID_HANDLE_VALUE || !ActivateActCtx(m_context, &m_cookie))
            throw std::runtime_error("the visual style cannot be had");
    }
    ~VisualStyleOf() {
        DeactivateActCtx(0, m_cookie);
        ReleaseActCtx(m_context);
    }
    VisualStyleOf(const VisualStyleOf&) = delete;
    VisualStyleOf& operator=(const VisualStyleOf&) = delete;

  private:
    HANDLE m_context;
    ULONG_PTR m_cookie = 0;
};

}  // namespace

std::span<const PageTemplate> PageTemplates() {
    return kPages;
}

INT_PTR OpenBareDialog(HMODULE module, HWND owner, PdfPrinterDialogPage pages) {
    const VisualStyleOf style(module);
    const Wanted wanted = {.module = module, .pages = pages};
    const INT_PTR button = DialogBoxParamW(module, MAKEINTRESOURCEW(IDD_MAIN), owner, FrameProc,
                                           reinterpret_cast<LPARAM>(&wanted));
    if (button <= 0) throw std::runtime_error("the bare dialog did not open");
    return button;
}

}  // namespace vmk::test
