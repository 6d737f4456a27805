#pragma once

#include <windows.h>
// commctrl.h needs windows.h before it.
#include <commctrl.h>

#include "base/handle.h"
#include "framework/module.h"

namespace vmk {

struct ImageListTraits {
    using Value = HIMAGELIST;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { ImageList_Destroy(value); }
};
using UniqueImageList = UniqueHandle<ImageListTraits>;

// The images of a strip bitmap in this module's resources, 16 pixels wide each; the colour of its top-left
// pixel is transparent. Empty when it cannot be loaded.
inline UniqueImageList LoadIconStrip(UINT bitmapId) noexcept {
    // As a DIB section: otherwise the list keeps no more than 16 colours.
    return UniqueImageList(ImageList_LoadImageW(Module::Get().Instance(), MAKEINTRESOURCEW(bitmapId), 16, 1,
                                                CLR_DEFAULT, IMAGE_BITMAP, LR_CREATEDIBSECTION));
}

}  // namespace vmk
