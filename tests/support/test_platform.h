#pragma once
// The toolkit under test with what tests of windows need. A test that uses only this runs on every
// toolkit.

#include "platform/controls.h"
#include "platform/language.h"
#include "platform/picture_output.h"
#include "tests/support/adapters.h"
#include "tests/support/driver.h"
#include "tests/support/scripted_dialogs.h"

namespace pelk {

// Each toolkit's test library defines these. A toolkit must not outlive its dialogs and language.
std::unique_ptr<Toolkit> makeToolkit(Dialogs& dialogs, const Language& language);
std::unique_ptr<Driver> makeDriver();
std::unique_ptr<PictureOutput> makePictureOutput();

/// Must outlive its toolkit's windows.
class TestPlatform {
 public:
    ScriptedDialogs dialogs;

    const Language& language() const { return *language_; }
    Toolkit& toolkit() { return *toolkit_; }
    Driver& driver() { return *driver_; }

 private:
    std::unique_ptr<Language> language_ = makeLanguage();
    std::unique_ptr<Toolkit> toolkit_ = makeToolkit(dialogs, *language_);
    std::unique_ptr<Driver> driver_ = makeDriver();
};

}  // namespace pelk
