#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/eyes/eye.h"
#include "tests/eyes/finding.h"
#include "tests/eyes/kinds.h"
#include "tests/eyes/views.h"

// Every page in every language, at the resolution that the test runs at. With VMK_EYES_PICTURES in the
// environment, a folder, a picture of each page is left there, what was found framed.

namespace vmk::test {
namespace {

int Dpi() {
    HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

class Gallery {
  public:
    Gallery() {
        const char* folder = std::getenv("VMK_EYES_PICTURES");
        if (folder) m_folder.assign(folder, folder + std::string(folder).size());
    }

    // False when a picture cannot be written.
    bool Add(HWND window, const Sight& sight, const std::vector<Finding>& findings) {
        if (sight.language != m_language) m_count = 0;
        m_language = sight.language;
        ++m_count;
        if (m_folder.empty() || (findings.empty() && !std::getenv("VMK_EYES_ALL"))) return true;
        std::vector<HWND> framed;
        for (const Finding& finding : findings) framed.push_back(finding.window);
        wchar_t number[8] = {};
        swprintf(number, 8, L"%02d", m_count);
        std::wstring name =
            sight.language + L"-" + std::to_wstring(sight.dpi) + L"-" + number + L"-" + sight.page + L".bmp";
        std::ranges::replace(name, L' ', L'-');
        return WritePicture(window, framed, m_folder + L"\\" + name);
    }

  private:
    std::wstring m_folder;
    std::wstring m_language;  // of the last view
    int m_count = 0;          // of its views
};

// Whether a made-up language, which is longer than most, need not fit: what is chosen in a closed list can be
// read in the dropped one, and the list of pages shows the rest of a name to who points at it.
bool MayBeCut(const Finding& finding) {
    return finding.kind == eye::kCutWhenClosed || finding.kind == eye::kCutInList;
}

Report Seen(const Language& language, const Sight& sight, const View& view) {
    Report report;
    LookAt(view, sight, report);
    if (language.isMadeUp) std::erase_if(report.findings, MayBeCut);
    return report;
}

TEST(Pages, ShowNothingThatTheEyeMinds) {
    Report all;
    Gallery gallery;
    bool arePictured = true;
    for (const Language& language : Languages()) {
        InLanguage(language, [&](const LiveDialog& dialog) {
            VisitViews(dialog, [&](const std::wstring& page, const View& view) {
                const Sight sight = {.language = language.name, .dpi = Dpi(), .page = page};
                dialog.Call([&](IPdfPrinterPreferences&) {
                    const Report report = Seen(language, sight, view);
                    if (!gallery.Add(GetAncestor(view.view, GA_ROOT), sight, report.findings))
                        arePictured = false;
                    all.Add(report);
                });
            });
        });
    }
    std::printf("%s%s", Table(all.findings).c_str(), Summary(all).c_str());
    for (const auto& [kind, count] : all.looked) {
        // Not every language has access keys.
        EXPECT_TRUE(count > 0 || kind == eye::kSameKey) << kind;
    }
    EXPECT_TRUE(arePictured);
    EXPECT_TRUE(all.findings.empty());
}

}  // namespace
}  // namespace vmk::test
