#pragma once

#include <optional>
#include <string>

#include "controls/edit_text.h"

namespace vmk {

// Puts what the user has chosen in a system dialog into the box, as a change. Nothing happens after a cancel.
void TakeChosenPath(CMyEditText& box, const std::optional<std::wstring>& chosen);

// Lets the user choose a file for the box among those of one type, beginning with the one that it shows.
// `type` is translated; `patterns`, for example "*.pfx;*.p12", also serve as the default extension.
void BrowseForFile(CMyEditText& box, const wchar_t* type, const wchar_t* patterns);

}  // namespace vmk
