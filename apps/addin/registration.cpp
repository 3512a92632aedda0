#include "apps/addin/registration.h"

#include <array>
#include <string_view>

#include "addin/product.h"
#include "apps/addin/addin_interfaces.h"
#include "platform/windows/wide_text.h"

namespace pelk {
namespace {

constexpr const wchar_t* kConnectProgId = L"Pelk.Connect";
constexpr const wchar_t* kCipherProgId = L"Pelk.DatabaseCipher";
constexpr const wchar_t* kAddinKey = L"Software\\Microsoft\\Office\\Outlook\\Addins\\Pelk.Connect";

/// Load when the mail client starts.
constexpr DWORD kLoadAtStartup = 3;
/// The add-in may show windows, so command-line use is not safe.
constexpr DWORD kNotCommandLineSafe = 0;

std::wstring progIdKey(const wchar_t* progId) {
    return std::wstring(L"Software\\Classes\\") + progId;
}

std::wstring textOf(const CLSID& classId) {
    std::array<wchar_t, 40> text{};
    StringFromGUID2(classId, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::wstring classKey(const CLSID& classId) {
    return L"Software\\Classes\\CLSID\\" + textOf(classId);
}

/// Writes values until one fails.
class RegistryWriter {
 public:
    void write(const std::wstring& key, const wchar_t* name, std::wstring_view text) {
        const std::wstring ended(text);
        write(key, name, REG_SZ, ended.c_str(), (ended.size() + 1) * sizeof(wchar_t));
    }
    void write(const std::wstring& key, const wchar_t* name, DWORD number) {
        write(key, name, REG_DWORD, &number, sizeof number);
    }
    long result() const { return result_; }

 private:
    void write(const std::wstring& key, const wchar_t* name, DWORD type, const void* data,
               std::size_t size) {
        if (result_ == ERROR_SUCCESS)
            result_ = RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), name, type, data,
                                      static_cast<DWORD>(size));
    }

    long result_ = ERROR_SUCCESS;
};

void writeClass(RegistryWriter& registry, const CLSID& classId, const wchar_t* progId,
                const std::wstring& description, const std::wstring& path) {
    registry.write(progIdKey(progId), nullptr, description);
    registry.write(progIdKey(progId) + L"\\CLSID", nullptr, textOf(classId));
    registry.write(classKey(classId), nullptr, description);
    registry.write(classKey(classId) + L"\\ProgID", nullptr, progId);
    registry.write(classKey(classId) + L"\\InprocServer32", nullptr, path);
    registry.write(classKey(classId) + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
}

}  // namespace

long registerServer(const std::wstring& path) {
    const std::wstring product = toWide(kProductName);
    RegistryWriter registry;
    writeClass(registry, kConnectClass, kConnectProgId, product + L" add-in", path);
    writeClass(registry, kDatabaseCipherClass, kCipherProgId, product + L" database cipher", path);
    registry.write(kAddinKey, L"FriendlyName", product);
    registry.write(kAddinKey, L"Description", product + L" addin for MS Outlook");
    registry.write(kAddinKey, L"LoadBehavior", kLoadAtStartup);
    registry.write(kAddinKey, L"CommandLineSafe", kNotCommandLineSafe);
    return registry.result();
}

long unregisterServer() {
    long result = ERROR_SUCCESS;
    for (const std::wstring& key :
         {std::wstring(kAddinKey), progIdKey(kConnectProgId), progIdKey(kCipherProgId),
          classKey(kConnectClass), classKey(kDatabaseCipherClass)}) {
        const long deleted = RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str());
        if (deleted != ERROR_SUCCESS && deleted != ERROR_FILE_NOT_FOUND)
            result = deleted;
    }
    return result;
}

}  // namespace pelk
