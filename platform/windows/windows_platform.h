#pragma once
// Owns the services of Windows.

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
    /// Returns the services that the core needs. They are valid while this object lives.
    Platform services() {
        return {files_, shell_, clock_, language_, crypto_, createMsxmlDocument};
    }

 private:
    WindowsFiles files_;
    WindowsShell shell_;
    WindowsClock clock_;
    WindowsLanguage language_;
    CngCrypto crypto_;
};

}  // namespace pelk
