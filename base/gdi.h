#pragma once

#include <windows.h>

#include "base/handle.h"

namespace vmk {

template <typename Handle>
struct GdiObjectTraits {
    using Value = Handle;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { DeleteObject(value); }
};
using UniqueBitmap = UniqueHandle<GdiObjectTraits<HBITMAP>>;
using UniqueBrush = UniqueHandle<GdiObjectTraits<HBRUSH>>;
using UniqueFont = UniqueHandle<GdiObjectTraits<HFONT>>;

// A device context that was created (or is handed back) by DeleteDC.
struct DeviceContextTraits {
    using Value = HDC;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { DeleteDC(value); }
};
using UniqueDeviceContext = UniqueHandle<DeviceContextTraits>;

}  // namespace vmk
