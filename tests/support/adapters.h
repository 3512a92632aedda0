#pragma once
// The platform's adapters that need no window. Each platform's test library defines these
// functions.

#include <memory>

#include "platform/crypto.h"
#include "platform/files.h"
#include "platform/language.h"
#include "platform/settings.h"
#include "platform/xml.h"

namespace pelk {

std::unique_ptr<Language> makeLanguage();
std::unique_ptr<Crypto> makeCrypto();
std::unique_ptr<FileSystem> makeFiles();
/// What is written to one of these objects can be read from the others of the same folder.
std::unique_ptr<Settings> makeSettings(const std::string& folder);
std::unique_ptr<XmlDocument> makeXmlDocument();

}  // namespace pelk
