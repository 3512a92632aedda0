#include "platform/windows/controls/accessible_names.h"

// The header below defines the identifiers that it declares.
#include <initguid.h>
// Requires the include above.
#include <commctrl.h>
#include <oleacc.h>

#include <string>

#include "platform/windows/com.h"
#include "platform/windows/controls/window_text.h"

namespace pelk {

namespace {

bool isOfClass(HWND control, const wchar_t* name) {
    wchar_t found[64] = L"";
    GetClassNameW(control, found, 64);
    return lstrcmpiW(found, name) == 0;
}

std::wstring placeholderOf(HWND box) {
    wchar_t hint[256] = L"";
    SendMessageW(box, EM_GETCUEBANNER, reinterpret_cast<WPARAM>(hint), 256);
    return hint;
}

std::wstring nameWithoutLabel(HWND control, HWND window) {
    const std::wstring hint = isOfClass(control, L"Edit") ? placeholderOf(control) : L"";
    return hint.empty() ? textOfWindow(window) : hint;
}

/// Returns the system's service for annotating windows; null where it has none.
ComPtr<IAccPropServices> accessibilityServices() {
    ComPtr<IAccPropServices> services;
    CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                     reinterpret_cast<void**>(services.put()));
    return services;
}

/// Overrides also the text of a control that has none.
void setName(HWND control, const std::wstring& name) {
    if (!isOfClass(control, L"Edit"))
        SetWindowTextW(control, name.c_str());
    setAccessibleName(control, name);
}

}  // namespace

void setAccessibleName(HWND control, const std::wstring& name) {
    if (const auto names = accessibilityServices())
        names->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                              PROPID_ACC_NAME, name.c_str());
}

void nameControls(HWND window) {
    std::wstring label;
    for (HWND control = GetWindow(window, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        if (isOfClass(control, L"Static")) {
            if (const std::wstring text = textOfWindow(control); !text.empty())
                label = text;
        } else if (isOfClass(control, L"Button")) {
            label.clear();
        } else {
            setName(control, label.empty() ? nameWithoutLabel(control, window) : label);
        }
    }
}

void describePicture(HWND picture, PictureKind kind, const std::wstring& description) {
    const auto services = accessibilityServices();
    if (!services)
        return;
    const auto client = static_cast<DWORD>(OBJID_CLIENT);
    VARIANT role = {};
    role.vt = VT_I4;
    role.lVal = kind == PictureKind::Chart ? ROLE_SYSTEM_CHART : ROLE_SYSTEM_GRAPHIC;
    services->SetHwndProp(picture, client, CHILDID_SELF, PROPID_ACC_ROLE, role);
    services->SetHwndPropStr(picture, client, CHILDID_SELF, PROPID_ACC_DESCRIPTION,
                             description.c_str());
}

}  // namespace pelk
