#include "controls/folder_dialog.h"

#include <objbase.h>

#include <shlobj.h>

#include "base/handle.h"

namespace vmk {
namespace {

// Memory that the shell hands out, owned by the caller.
template <typename Pointer>
struct ShellMemoryTraits {
    using Value = Pointer;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { CoTaskMemFree(value); }
};
using UniqueItemList = UniqueHandle<ShellMemoryTraits<PIDLIST_ABSOLUTE>>;
using UniqueShellText = UniqueHandle<ShellMemoryTraits<PWSTR>>;

}  // namespace

std::optional<std::wstring> ChooseFolder(HWND owner) {
    BROWSEINFOW request{};
    request.hwndOwner = owner;
    request.ulFlags = BIF_RETURNONLYFSDIRS;
    const UniqueItemList folder(SHBrowseForFolderW(&request));
    if (!folder) return std::nullopt;
    UniqueShellText path;
    if (FAILED(SHGetNameFromIDList(folder.get(), SIGDN_FILESYSPATH, path.put()))) return std::nullopt;
    return std::wstring(path.get());
}

}  // namespace vmk
