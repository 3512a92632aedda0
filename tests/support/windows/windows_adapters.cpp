#include <windows.h>
// Requires the include above.
#include <objbase.h>

#include "platform/windows/cng_crypto.h"
#include "platform/windows/msxml_document.h"
#include "platform/windows/registry_settings.h"
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_language.h"
#include "tests/support/adapters.h"

namespace pelk {
namespace {

constexpr const wchar_t* kTestKey = L"Software\\Pelk-test";

struct TestSettings : RegistrySettings {
    TestSettings() : RegistrySettings(kTestKey) {}
    ~TestSettings() override { RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey); }
};

}  // namespace

std::unique_ptr<Language> makeLanguage() {
    return std::make_unique<WindowsLanguage>(L"en-US");
}

std::unique_ptr<Crypto> makeCrypto() {
    return std::make_unique<CngCrypto>();
}

std::unique_ptr<FileSystem> makeFiles() {
    return std::make_unique<WindowsFiles>();
}

std::unique_ptr<Settings> makeSettings(const std::string&) {
    return std::make_unique<TestSettings>();
}

std::unique_ptr<XmlDocument> makeXmlDocument() {
    // The mail client has initialized COM on the thread that runs the program.
    static const HRESULT ready = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    return SUCCEEDED(ready) ? createMsxmlDocument() : nullptr;
}

}  // namespace pelk
