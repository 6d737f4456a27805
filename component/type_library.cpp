#include "component/type_library.h"

#include <oleauto.h>

#include "framework/module.h"

namespace vmk {

HRESULT LoadOwnTypeLibrary(ComPointer<ITypeLib>& library) {
    return LoadTypeLibEx(Module::Get().Path().c_str(), REGKIND_NONE, library.put());
}

}  // namespace vmk
