#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/eyes/eye.h"
#include "tests/support/full_use.h"
#include "tests/support/live_dialog.h"

// All that a user can come to see of the dialog, in all languages that there are files of:
//
//     for (const Language& language : Languages())
//         InLanguage(language, [](const LiveDialog& dialog) {
//             VisitViews(dialog, [&](const std::wstring& page, const View& view) { ... });
//         });

namespace vmk::test {

struct Language {
    std::wstring name;
    LANGID id;
    std::string folder;     // of its file; empty: English as it stands in the templates
    bool isMadeUp = false;  // nobody's language, with longer texts than most have
};

// English, the languages of the build, and the made-up ones whose files lie beside the tests.
std::vector<Language> Languages();

// Opens the dialog in a language, with everything in use that can be or with settings of one's own.
void InLanguage(const Language& language, const std::function<void(LiveDialog&)>& use,
                const PrinterSettings& shown = SettingsInFullUse());

// Shows one page after the other with each of its panels, and the dialogs that pages open, and visits what is
// to be seen: the dialog's own controls come first. The page's name is the English one.
using Visitor = std::function<void(const std::wstring& page, const View& view)>;
void VisitViews(const LiveDialog& dialog, const Visitor& visit);

}  // namespace vmk::test
