#pragma once

#include <windows.h>

#include <iterator>

// Heaps that somebody may have written where nothing of his is. The system has to be told to check them:
// under Wine with WINEDEBUG=warn+heap, which tests/chaos/CMakeLists.txt does.

namespace vmk::test {

// Whether all blocks of all heaps of this process are in order, those that were freed included.
inline bool HeapsAreInOrder() {
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(std::size(heaps)), heaps);
    bool inOrder = count <= std::size(heaps);
    for (DWORD index = 0; index < count && inOrder; ++index)
        inOrder = HeapValidate(heaps[index], 0, nullptr) != FALSE;
    return inOrder;
}

}  // namespace vmk::test
