#pragma once
// Everything that the core is given by the platform it runs on, toolkit aside, in one hand.

#include <functional>
#include <memory>

#include "platform/clock.h"
#include "platform/crypto.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/language.h"
#include "platform/shell.h"
#include "platform/xml.h"

namespace pelk {

/// References to services that outlive whoever holds this.
struct Platform {
    FileSystem& files;
    Shell& shell;
    Clock& clock;
    const Language& language;
    const Crypto& crypto;
    Dialogs& dialogs;
    /// Makes an empty document.
    std::function<std::unique_ptr<XmlDocument>()> createXmlDocument;
};

}  // namespace pelk
