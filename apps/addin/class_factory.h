#pragma once
// Creates the objects of one class for COM.

#include <unknwn.h>

#include "platform/windows/com.h"
#include "platform/windows/com_object.h"

namespace pelk {

template <typename Object>
class ClassFactory : public ComObject<IClassFactory> {
 public:
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (object == nullptr)
            return E_POINTER;
        *object = nullptr;
        if (outer != nullptr)
            return CLASS_E_NOAGGREGATION;
        try {
            return ComPtr<Object>::attach(new Object())->QueryInterface(iid, object);
        } catch (...) {
            return E_FAIL;
        }
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        if (lock != FALSE)
            ModuleLock::acquire();
        else
            ModuleLock::release();
        return S_OK;
    }
};

}  // namespace pelk
