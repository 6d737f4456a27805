#include "component/type_library.h"

#include <oleauto.h>

#include "framework/module.h"

namespace vmk {

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(Module::Get().Instance(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

HRESULT LoadOwnTypeLibrary(ComPointer<ITypeLib>& library) {
    return LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.put());
}

}  // namespace vmk
