#include "controls/path_box.h"

#include "controls/file_dialog.h"

namespace vmk {

void TakeChosenPath(CMyEditText& box, const std::optional<std::wstring>& chosen) {
    if (!chosen) return;
    box.SetText(*chosen);
    box.EnableApply();
}

void BrowseForFile(CMyEditText& box, const wchar_t* type, const wchar_t* patterns) {
    const OpenFileOptions options = {.filters = {{.text = box.Translate(type), .patterns = patterns}},
                                     .defaultExtension = patterns,
                                     .initialPath = box.Text()};
    TakeChosenPath(box, ChooseFile(GetActiveWindow(), options));
}

}  // namespace vmk
