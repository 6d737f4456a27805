#include "framework/visual_style.h"

#include "framework/module.h"

namespace vmk {
namespace {

constexpr int kManifest = 2;

HANDLE CreateContext() noexcept {
    ACTCTXW context{};
    context.cbSize = sizeof(context);
    context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    context.hModule = Module::Get().Instance();
    context.lpResourceName = MAKEINTRESOURCEW(kManifest);
    return CreateActCtxW(&context);
}

}  // namespace

VisualStyle::VisualStyle() noexcept : m_context(CreateContext()) {
    m_active = m_context != INVALID_HANDLE_VALUE && ActivateActCtx(m_context, &m_cookie);
}

VisualStyle::~VisualStyle() {
    // A context that somebody left on top of this one goes along with it; without the flag it is an
    // exception.
    if (m_active) DeactivateActCtx(DEACTIVATE_ACTCTX_FLAG_FORCE_EARLY_DEACTIVATION, m_cookie);
    if (m_context != INVALID_HANDLE_VALUE) ReleaseActCtx(m_context);
}

}  // namespace vmk
