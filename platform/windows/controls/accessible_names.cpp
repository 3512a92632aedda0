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

/// Overrides also the text of a control that has none.
void setName(HWND control, const std::wstring& name) {
    if (!isOfClass(control, L"Edit"))
        SetWindowTextW(control, name.c_str());
    setAccessibleName(control, name);
}

}  // namespace

void setAccessibleName(HWND control, const std::wstring& name) {
    ComPtr<IAccPropServices> names;
    if (SUCCEEDED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                   IID_IAccPropServices, reinterpret_cast<void**>(names.put()))))
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

}  // namespace pelk
