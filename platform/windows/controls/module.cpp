#include "platform/windows/controls/module.h"

namespace pelk {

namespace {

HANDLE createControlsContext() {
    const HINSTANCE module = ownModule();
    constexpr WORD kManifest = 2;
    if (FindResourceW(module, MAKEINTRESOURCEW(kManifest), MAKEINTRESOURCEW(24)) == nullptr)
        return INVALID_HANDLE_VALUE;
    ACTCTXW context = {};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    context.hModule = module;
    context.lpResourceName = MAKEINTRESOURCEW(kManifest);
    return CreateActCtxW(&context);
}

/// Never freed: windows created under it may use it at any time.
HANDLE controlsContext() {
    static const HANDLE context = createControlsContext();
    return context;
}

/// Sets the thread's DPI awareness and returns the previous one. Null when Windows does not support
/// it or `context` is null.
HANDLE setDensityContext(HANDLE context) {
    using Setter = HANDLE(WINAPI*)(HANDLE);
    static const auto setter = reinterpret_cast<Setter>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetThreadDpiAwarenessContext")));
    return setter != nullptr && context != nullptr ? setter(context) : nullptr;
}

}  // namespace

HINSTANCE ownModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(&createControlsContext), &module);
    return module;
}

std::wstring ownModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(ownModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(2 * path.size());
    }
}

WindowScope::WindowScope() {
    const auto systemAware = reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-2));
    const HANDLE context = controlsContext();
    activated_ = context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &cookie_);
    densityBefore_ = setDensityContext(systemAware);
}

WindowScope::~WindowScope() {
    setDensityContext(densityBefore_);
    if (activated_)
        DeactivateActCtx(0, cookie_);
}

}  // namespace pelk
