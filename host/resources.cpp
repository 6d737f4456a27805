#include "host/resources.h"

#include <windows.h>

namespace vmk {

std::string_view Resource(int id) {
    HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_RCDATA);
    HGLOBAL loaded = found ? LoadResource(nullptr, found) : nullptr;
    if (!loaded) return {};
    return {static_cast<const char*>(LockResource(loaded)), SizeofResource(nullptr, found)};
}

}  // namespace vmk
