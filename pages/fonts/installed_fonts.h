#pragma once

#include <string>

#include "pages/fonts/font_list.h"

namespace vmk {

// Every face that the system reports for the screen, in every character set. Fonts that cannot be made, and
// fonts without outlines, are there with what is known of them without. Throws std::bad_alloc when the system
// does not report all of them.
FontFaces EnumerateInstalledFaces();

// A key that is equal for two names if, and only if, a list view's exact text search takes them for the same:
// that search compares in the user's language and ignores case. With keys a name is looked up without
// searching a list of thousands.
std::string ListSearchKey(const std::wstring& name);

}  // namespace vmk
