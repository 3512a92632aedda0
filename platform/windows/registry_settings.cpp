#include "platform/windows/registry_settings.h"

#include <windows.h>

#include "platform/windows/wide_text.h"

namespace pelk {

std::optional<std::string> RegistrySettings::read(const std::string& key) const {
    const std::wstring name = toWide(key);
    DWORD size = 0;
    if (RegGetValueW(HKEY_CURRENT_USER, path_.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr,
                     nullptr, &size) != ERROR_SUCCESS)
        return std::nullopt;
    std::wstring text(size / sizeof(wchar_t), L'\0');
    if (RegGetValueW(HKEY_CURRENT_USER, path_.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr,
                     text.data(), &size) != ERROR_SUCCESS)
        return std::nullopt;
    return toUtf8(text.c_str());
}

void RegistrySettings::write(const std::string& key, const std::string& text) {
    const std::wstring wide = toWide(text);
    RegSetKeyValueW(HKEY_CURRENT_USER, path_.c_str(), toWide(key).c_str(), REG_SZ, wide.c_str(),
                    static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t)));
}

}  // namespace pelk
