#include "platform/desktop/locale_language.h"
#include "platform/desktop/openssl_crypto.h"
#include "platform/desktop/posix_files.h"
#include "platform/desktop/pugi_document.h"
#include "platform/desktop/qt/settings_file.h"
#include "tests/support/adapters.h"

namespace pelk {

std::unique_ptr<Language> makeLanguage() {
    return std::make_unique<LocaleLanguage>("en_US");
}

std::unique_ptr<Crypto> makeCrypto() {
    return std::make_unique<OpensslCrypto>();
}

std::unique_ptr<FileSystem> makeFiles() {
    return std::make_unique<PosixFiles>();
}

std::unique_ptr<Settings> makeSettings(const std::string& folder) {
    return std::make_unique<SettingsFile>(folder + "/forms.ini");
}

std::unique_ptr<XmlDocument> makeXmlDocument() {
    return createPugiDocument();
}

}  // namespace pelk
