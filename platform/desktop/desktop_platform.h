#pragma once
// Owns the services of the Linux desktop.

#include <string>

#include "platform/desktop/desktop_shell.h"
#include "platform/desktop/locale_language.h"
#include "platform/desktop/openssl_crypto.h"
#include "platform/desktop/posix_files.h"
#include "platform/desktop/pugi_document.h"
#include "platform/platform.h"

namespace pelk {

class DesktopPlatform {
 public:
    /// An empty `dataFolder` means the user's default one.
    explicit DesktopPlatform(std::string dataFolder) : shell_(std::move(dataFolder)) {}

    const Language& language() const { return language_; }
    /// Returns the services that the core needs. They are valid while this object lives.
    Platform services() { return {files_, shell_, clock_, language_, crypto_, createPugiDocument}; }

 private:
    PosixFiles files_;
    DesktopShell shell_;
    SystemClock clock_;
    LocaleLanguage language_;
    OpensslCrypto crypto_;
};

}  // namespace pelk
