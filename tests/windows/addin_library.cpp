#include "tests/windows/addin_library.h"

#include <gtest/gtest.h>
#include <process.h>
#include <sddl.h>
#include <shlobj.h>

#include <filesystem>

#include "apps/addin/addin_interfaces.h"

namespace pelk {
namespace {

std::wstring userClassesInKernel() {
    HANDLE token = nullptr;
    OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token);
    alignas(TOKEN_USER) BYTE buffer[256];
    DWORD size = sizeof buffer;
    GetTokenInformation(token, TokenUser, buffer, size, &size);
    CloseHandle(token);
    wchar_t* sid = nullptr;
    ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(buffer)->User.Sid, &sid);
    const std::wstring path = L"\\Registry\\User\\" + std::wstring(sid) + L"\\Software\\Classes\\";
    LocalFree(sid);
    return path;
}

void linkKey(const std::wstring& key) {
    const std::wstring target = userClassesInKernel() + key;
    HKEY link = nullptr;
    // The key may exist already.
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + key).c_str(), 0, nullptr,
                        REG_OPTION_CREATE_LINK, KEY_CREATE_LINK | KEY_SET_VALUE, nullptr, &link,
                        nullptr) == 0)
        RegSetValueExW(link, L"SymbolicLinkValue", 0, REG_LINK,
                       reinterpret_cast<const BYTE*>(target.data()),
                       static_cast<DWORD>(target.size() * sizeof(wchar_t)));
    RegCloseKey(link);
}

std::wstring textOf(const CLSID& classId) {
    wchar_t text[40];
    StringFromGUID2(classId, text, 40);
    return text;
}

constexpr const wchar_t* kAside = L".aside";

}  // namespace

std::wstring libraryPath() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).replace_filename(L"pelk.dll").wstring();
}

AddinLibrary::AddinLibrary(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {
    EXPECT_NE(module_, nullptr) << toUtf8(path) << " error " << GetLastError();
}

AddinLibrary::~AddinLibrary() {
    FreeLibrary(module_);
}

bool AddinLibrary::canUnload() const {
    return function<HRESULT STDAPICALLTYPE()>("DllCanUnloadNow")() == S_OK;
}

ComPtr<IUnknown> AddinLibrary::createUnknown(const CLSID& classId) {
    ComPtr<IClassFactory> factory;
    function<HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**)>("DllGetClassObject")(
        classId, IID_IClassFactory, reinterpret_cast<void**>(factory.put()));
    ComPtr<IUnknown> object;
    if (factory)
        factory->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(object.put()));
    return object;
}

bool runRegistrar(bool unregister) {
    return _wspawnlp(_P_WAIT, L"regsvr32", L"regsvr32", L"/s", unregister ? L"/u" : L"/s",
                     (L"\"" + libraryPath() + L"\"").c_str(), nullptr) == 0;
}

void linkUserClasses() {
    if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr)
        return;
    for (const std::wstring& key :
         {std::wstring(L"Pelk.Connect"), L"CLSID\\" + textOf(kConnectClass),
          L"CLSID\\" + textOf(kDatabaseCipherClass)})
        linkKey(key);
}

DatabaseAside::DatabaseAside() : turn_(CreateMutexW(nullptr, FALSE, L"Pelk add-in test")) {
    WaitForSingleObject(turn_, INFINITE);
    wchar_t folder[MAX_PATH];
    SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder);
    path_ = std::wstring(folder) + L"\\pelk\\pelk.db";
    MoveFileExW(path_.c_str(), (path_ + kAside).c_str(), 0);
}

DatabaseAside::~DatabaseAside() {
    DeleteFileW(path_.c_str());
    MoveFileExW((path_ + kAside).c_str(), path_.c_str(), 0);
    ReleaseMutex(turn_);
    CloseHandle(turn_);
}

}  // namespace pelk
