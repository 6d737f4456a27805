#include "base/code_page.h"

namespace vmk {

std::string Narrow(std::wstring_view text, UINT codePage) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    if (size == 0) return {};  // asked to convert into no room, the system would tell the size once more
    std::string narrow(static_cast<std::size_t>(size), '\0');
    const int written =
        WideCharToMultiByte(codePage, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(written));
    return narrow;
}

std::wstring Widen(std::string_view text, UINT codePage) {
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
    if (size == 0) return {};
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    const int written = MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), size);
    wide.resize(static_cast<std::size_t>(written));
    return wide;
}

}  // namespace vmk
