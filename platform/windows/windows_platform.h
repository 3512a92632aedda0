#pragma once
// The services of Windows, made once and handed to the core.

#include "platform/platform.h"
#include "platform/windows/cng_crypto.h"
#include "platform/windows/msxml_document.h"
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_language.h"
#include "platform/windows/windows_shell.h"

namespace pelk {

class WindowsPlatform {
 public:
    const Language& language() const { return language_; }
    /// What the core needs, with the given dialogs. Valid as long as this object and they live.
    Platform with(Dialogs& dialogs) {
        return {files_, shell_, clock_, language_, crypto_, dialogs, createMsxmlDocument};
    }

 private:
    WindowsFiles files_;
    WindowsShell shell_;
    WindowsClock clock_;
    WindowsLanguage language_;
    CngCrypto crypto_;
};

}  // namespace pelk
