// What a screen reader finds in each form, and the access keys of its buttons.

#include <gtest/gtest.h>

#include <set>

#include "addin/aboutForm.h"
#include "addin/configForm.h"
#include "links/ShowFindFormDomains.h"
#include "links/ShowFindFormSimple.h"
#include "links/findForm.h"
#include "links/findFormDomain.h"
#include "maintenance/DetailsForm.h"
#include "maintenance/DuplicatesForm.h"
#include "maintenance/OthersForm.h"
#include "maintenance/ShowFormSingle.h"
#include "maintenance/mergeForm.h"
#include "map/CircleForm.h"
#include "map/CommunityForm.h"
#include "scan/ParseForm.h"
#include "tests/support/core_platform.h"
#include "tests/support/spoken_controls.h"
#include "views/LostSightForm.h"
#include "views/OverTimeForm.h"
#include "views/ShowForm.h"

namespace pelk {
namespace {

void expectReadable(Window& window) {
    window.show();
    const std::vector<SpokenControl> controls = spokenControls(window);
    EXPECT_FALSE(controls.empty());
    std::set<std::string> keys;
    for (const SpokenControl& control : controls) {
        EXPECT_NE(control.role, "") << control.name;
        EXPECT_TRUE(!control.name.empty() || control.role == "text") << control.role;
        const bool isPressed = control.role.ends_with("button");
        EXPECT_TRUE(!isPressed || (!control.key.empty() && keys.insert(control.key).second))
            << control.name;
    }
    window.hide();
}

class Accessibility : public testing::Test {
 protected:
    CorePlatform core;
    Toolkit& kit = core.toolkit();
};

TEST_F(Accessibility, everyControlHasANameAndARole) {
    expectReadable(*ParseForm(core.ui(), core.platform(), core.storage()).window);
    expectReadable(*ShowForm(core.ui(), core.language()).window);
    expectReadable(*mergeForm(kit, core.dialogs, core.storage(), core.language()).window);
    expectReadable(*DetailsForm(kit).window);
    expectReadable(*ShowFormSingle(kit, core.display).window);
    expectReadable(*findForm(kit, core.dialogs, core.language()).window);
    expectReadable(*ShowFindFormSimple(kit).window);
    expectReadable(*findFormDomain(core.ui(), core.language()).window);
    expectReadable(*ShowFindFormDomains(kit, core.language()).window);
    expectReadable(*DuplicatesForm(kit, core.settings, core.language()).window);
    expectReadable(*OthersForm(core.ui(), core.storage()).window);
    expectReadable(*configForm(kit, core.dialogs, core.storage()).window);
    expectReadable(*aboutForm(kit).window);
    expectReadable(*OverTimeForm(kit).window);
    expectReadable(*LostSightForm(kit, core.clock).window);
    expectReadable(*CircleForm(core.ui(), core.platform()).window);
    expectReadable(*CommunityForm(core.ui(), core.platform()).window);
}

}  // namespace
}  // namespace pelk
