#include "base/wipe.h"

#include <windows.h>

namespace vmk {

void Wipe(std::wstring& text) noexcept {
    text.resize(text.capacity());
    SecureZeroMemory(text.data(), text.size() * sizeof(wchar_t));
    text.clear();
}

}  // namespace vmk
