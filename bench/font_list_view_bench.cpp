// Filling a sorting list control with the names of 2,500 and of 5,000 faces, and moving all of them to
// another one, as the Fonts page does.

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "bench/figures.h"
#include "pages/fonts/font_list_view.h"
#include "pages/fonts/installed_fonts.h"

namespace vmk {
namespace {

constexpr std::size_t kFaces = 2500;
constexpr int kRounds = 15;

// A list control without a dialog around it.
class ListWindow {
  public:
    ListWindow()
        : m_window(CreateWindowW(WC_LISTVIEWW, L"",
                                 WS_POPUP | WS_VISIBLE | LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SORTASCENDING,
                                 0, 0, 200, 300, nullptr, nullptr, nullptr, nullptr)) {
        List().Prepare(nullptr);
    }
    ~ListWindow() { DestroyWindow(m_window); }
    ListWindow(const ListWindow&) = delete;
    ListWindow& operator=(const ListWindow&) = delete;

    FontListView List() const { return FontListView(m_window); }
    void SelectAll() const { ListView_SetItemState(m_window, -1, LVIS_SELECTED, LVIS_SELECTED); }

  private:
    HWND m_window;
};

FontFaces MakeFaces(std::size_t count) {
    FontFaces faces;
    for (std::size_t i = 0; i < count; ++i) {
        const std::wstring name = L"Family of fonts " + std::to_wstring(i * 7919 % count);
        faces.Add({.name = name, .type = FaceReport::kTrueTypeType}, [] { return std::optional(0U); });
    }
    return faces;
}

double Milliseconds(std::size_t count) {
    const ListWindow source;
    const ListWindow target;
    const FontFaces faces = MakeFaces(count);
    LARGE_INTEGER frequency;
    LARGE_INTEGER start;
    LARGE_INTEGER end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    source.List().Insert(FontOffer(faces, ListSearchKey).Rest());
    source.SelectAll();
    target.List().Insert(source.List().Selected());
    source.List().DeleteSelected();
    QueryPerformanceCounter(&end);
    if (target.List().Names().size() != count) std::fputs("wrong result\n", stderr);
    return 1e3 * static_cast<double>(end.QuadPart - start.QuadPart) / static_cast<double>(frequency.QuadPart);
}

int Run() {
    const INITCOMMONCONTROLSEX classes = {.dwSize = sizeof(classes), .dwICC = ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    std::vector<double> few;
    std::vector<double> many;
    for (int round = 0; round < kRounds; ++round) {
        few.push_back(Milliseconds(kFaces));
        many.push_back(Milliseconds(2 * kFaces));
    }
    std::printf("the Fonts page's controls: %zu names %.0f ms, %zu names %.0f ms\n", kFaces, Median(few),
                2 * kFaces, Median(many));
    PrintRow("the Fonts page's controls: with 5,000 names to with 2,500", RatioOf(many, few), AtMost(2.1));
    return 0;
}

}  // namespace
}  // namespace vmk

int main() {
    return vmk::Run();
}
