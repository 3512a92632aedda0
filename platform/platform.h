#pragma once
// The services that the platform gives the core. `UserInterface` has those of programs with
// windows.

#include <functional>
#include <memory>

#include "platform/clock.h"
#include "platform/crypto.h"
#include "platform/files.h"
#include "platform/language.h"
#include "platform/shell.h"
#include "platform/xml.h"

namespace pelk {

/// References to services that must outlive this object.
struct Platform {
    FileSystem& files;
    Shell& shell;
    Clock& clock;
    const Language& language;
    const Crypto& crypto;
    /// Creates an empty document.
    std::function<std::unique_ptr<XmlDocument>()> createXmlDocument;
};

}  // namespace pelk
