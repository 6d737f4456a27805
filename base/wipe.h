#pragma once

#include <string>

namespace vmk {

// Overwrites a text, spare room included, and empties it: for passwords, before their memory is freed.
void Wipe(std::wstring& text) noexcept;

}  // namespace vmk
