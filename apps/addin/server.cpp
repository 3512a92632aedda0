// The four functions that COM calls. There is no DllMain because the mail client counts its time as
// start-up time of the add-in.

#include <windows.h>
// Requires the include above.
#include <objbase.h>

#include <string>

#include "apps/addin/addin_interfaces.h"
#include "apps/addin/cipher_object.h"
#include "apps/addin/class_factory.h"
#include "apps/addin/connect_object.h"
#include "apps/addin/registration.h"
#include "platform/windows/controls/module.h"

namespace pelk {
namespace {

template <typename Object>
HRESULT handOutFactory(REFIID iid, void** object) {
    return ComPtr<ClassFactory<Object>>::attach(new ClassFactory<Object>())
        ->QueryInterface(iid, object);
}

HRESULT findFactory(const CLSID& classId, REFIID iid, void** object) {
    if (classId == kConnectClass)
        return handOutFactory<ConnectObject>(iid, object);
    if (classId == kDatabaseCipherClass)
        return handOutFactory<CipherObject>(iid, object);
    return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace
}  // namespace pelk

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    try {
        return pelk::findFactory(classId, iid, object);
    } catch (...) {
        return E_FAIL;
    }
}

STDAPI DllCanUnloadNow() {
    return pelk::ModuleLock::isHeld() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
    try {
        return HRESULT_FROM_WIN32(pelk::registerServer(pelk::ownModulePath()));
    } catch (...) {
        return E_FAIL;
    }
}

STDAPI DllUnregisterServer() {
    try {
        return HRESULT_FROM_WIN32(pelk::unregisterServer());
    } catch (...) {
        return E_FAIL;
    }
}
