// Tests an installation as the mail client finds it, through the user's registry. The
// variable PELK_SETUP names the installer, which must refuse to replace what is loaded.

#include <gtest/gtest.h>
#include <process.h>

#include <cstdlib>
#include <string>

#include "apps/addin/addin_interfaces.h"
#include "tests/windows/addin_library.h"
#include "tests/windows/stand_in_client.h"

namespace pelk {
namespace {

std::wstring registeredLibrary() {
    const wchar_t* const progId = L"Software\\Classes\\Pelk.Connect\\CLSID";
    wchar_t classId[40] = L"";
    DWORD size = sizeof classId;
    EXPECT_EQ(
        RegGetValueW(HKEY_CURRENT_USER, progId, nullptr, RRF_RT_REG_SZ, nullptr, classId, &size),
        0);
    const std::wstring key =
        L"Software\\Classes\\CLSID\\" + std::wstring(classId) + L"\\InprocServer32";
    wchar_t path[MAX_PATH] = L"";
    size = sizeof path;
    EXPECT_EQ(
        RegGetValueW(HKEY_CURRENT_USER, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, path, &size),
        0);
    return path;
}

intptr_t runSetup() {
    const wchar_t* const setup = _wgetenv(L"PELK_SETUP");
    return setup == nullptr ? -1 : _wspawnl(_P_WAIT, setup, L"setup", L"/S", nullptr);
}

TEST(Installed, isFoundInTheRegistryAndConnects) {
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    StandInClient host;
    AddinLibrary library(registeredLibrary());
    auto addin = library.create<IDTExtensibility2>(kConnectClass);
    ASSERT_TRUE(addin);
    EXPECT_EQ(
        addin->OnConnection(host.application().get(), ConnectMode::AfterStartup, nullptr, nullptr),
        S_OK);
    EXPECT_FALSE(host.menu().empty());
    EXPECT_EQ(addin->OnDisconnection(1, nullptr), S_OK);
    addin.reset();
    EXPECT_TRUE(library.canUnload());
}

TEST(Installed, isNotReplacedWhileItIsLoaded) {
    constexpr intptr_t kInUse = 2;
    AddinLibrary library(registeredLibrary());
    EXPECT_EQ(runSetup(), kInUse);
}

}  // namespace
}  // namespace pelk
