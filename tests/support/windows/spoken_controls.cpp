#include "tests/support/spoken_controls.h"

// The header below defines the identifiers that it declares.
#include <initguid.h>
// Requires the include above.
#include <oleacc.h>

#include <gtest/gtest.h>

#include "apps/addin/class_factory.h"
#include "platform/windows/com.h"
#include "tests/support/windows/announced_names.h"
#include "tests/support/windows/win_acts.h"

namespace pelk {
namespace {

class OwnNames : public testing::Environment {
 public:
    void SetUp() override {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        const auto factory = ComPtr<IClassFactory>::attach(new ClassFactory<AnnouncedNames>);
        DWORD cookie = 0;
        EXPECT_EQ(CoRegisterClassObject(CLSID_AccPropServices, factory.get(), CLSCTX_INPROC_SERVER,
                                        REGCLS_MULTIPLEUSE, &cookie),
                  S_OK);
    }
};

const testing::Environment* const kOwnNames = testing::AddGlobalTestEnvironment(new OwnNames);

struct KnownRole {
    const wchar_t* kind;
    LONG role;
    const char* name;
};

constexpr KnownRole kRoles[] = {
    {L"Static", ROLE_SYSTEM_STATICTEXT, "text"},
    {L"Button", ROLE_SYSTEM_PUSHBUTTON, "button"},
    {L"Button", ROLE_SYSTEM_RADIOBUTTON, "radio button"},
    {L"Edit", ROLE_SYSTEM_TEXT, "edit"},
    {L"SysTreeView32", ROLE_SYSTEM_OUTLINE, "tree"},
    {L"SysListView32", ROLE_SYSTEM_LIST, "list"},
    {L"msctls_trackbar32", ROLE_SYSTEM_SLIDER, "slider"},
    {L"msctls_progress32", ROLE_SYSTEM_PROGRESSBAR, "progress"},
    {L"Pelk.BarChart", ROLE_SYSTEM_CHART, "chart"},
    {L"Pelk.DrawingArea", ROLE_SYSTEM_GRAPHIC, "graphic"},
};

/// Wine describes most controls as the inner part of some window, and Windows by their class.
std::string nameOf(LONG role, HWND control) {
    for (const KnownRole& known : kRoles)
        if (role == known.role || (role == ROLE_SYSTEM_CLIENT && classOf(control) == known.kind))
            return known.name;
    return {};
}

VARIANT itself() {
    VARIANT self = {};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
}

using Property = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

std::string read(IAccessible& control, Property property) {
    BSTR text = nullptr;
    const std::string copy = (control.*property)(itself(), &text) == S_OK ? toUtf8(text) : "";
    SysFreeString(text);
    return copy;
}

bool isPicture(HWND control) {
    return classOf(control) == L"Static" &&
           (GetWindowLongPtrW(control, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
}

SpokenControl spoken(HWND control) {
    ComPtr<IAccessible> found;
    EXPECT_EQ(AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                         reinterpret_cast<void**>(found.put())),
              S_OK);
    VARIANT role = {};
    EXPECT_EQ(found->get_accRole(itself(), &role), S_OK);
    const auto announced = AnnouncedNames::names.find(control);
    return {announced == AnnouncedNames::names.end() ? read(*found.get(), &IAccessible::get_accName)
                                                     : toUtf8(announced->second),
            isPicture(control) ? "graphic" : nameOf(role.lVal, control),
            read(*found.get(), &IAccessible::get_accKeyboardShortcut)};
}

}  // namespace

std::vector<SpokenControl> spokenControls(Window& window) {
    std::vector<SpokenControl> controls;
    for (HWND control = GetWindow(native(window), GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT))
        if (IsWindowVisible(control))
            controls.push_back(spoken(control));
    return controls;
}

}  // namespace pelk
