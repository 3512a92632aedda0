#pragma once
// Base classes of the COM objects that the program itself offers.

#include <windows.h>
// The line above comes first.
#include <oaidl.h>

#include <atomic>
#include <span>
#include <tuple>
#include <type_traits>

#include "platform/windows/module_lock.h"

namespace pelk {

// COM's own interfaces have no virtual destructor; objects are destroyed by `Release` alone.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Counts references, and deletes itself when the last is given back. It is born with one, which
/// belongs to its maker.
template <typename... Interfaces>
class ComObject : public Interfaces... {
 public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr)
            return E_POINTER;
        *object = nullptr;
        if (!(offer<Interfaces>(iid, object) || ...) && !offerBase(iid, object))
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

 protected:
    using First = std::tuple_element_t<0, std::tuple<Interfaces...>>;

    ComObject() = default;
    virtual ~ComObject() = default;

    /// An interface identifier under which the first interface is offered as well.
    virtual bool isOtherName(REFIID) const { return false; }

 private:
    template <typename Interface>
    bool offer(REFIID iid, void** object) {
        if (iid != __uuidof(Interface))
            return false;
        *object = static_cast<Interface*>(this);
        return true;
    }
    bool offerBase(REFIID iid, void** object) {
        constexpr bool kIsDispatch = std::is_base_of_v<IDispatch, First>;
        if (iid != __uuidof(IUnknown) && !(kIsDispatch && iid == __uuidof(IDispatch)) &&
            !isOtherName(iid))
            return false;
        *object = static_cast<First*>(this);
        return true;
    }

    ModuleLock lock_;
    std::atomic<ULONG> references_ = 1;
};

#pragma GCC diagnostic pop

/// A member that an object answers to by name.
struct NamedMember {
    const wchar_t* name;
    DISPID id;
};

/// Finds the member of that name, whatever the case of its letters; DISPID_UNKNOWN for none.
inline DISPID findMember(std::span<const NamedMember> members, const wchar_t* name) {
    for (const NamedMember& member : members)
        if (name != nullptr && CompareStringOrdinal(member.name, -1, name, -1, TRUE) == CSTR_EQUAL)
            return member.id;
    return DISPID_UNKNOWN;
}

/// An object that can be called by name too. It has no type library: a table of names does.
template <typename... Interfaces>
class AutomationObject : public ComObject<Interfaces...> {
 public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (count == nullptr)
            return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        if (info != nullptr)
            *info = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override {
        if (names == nullptr || ids == nullptr || count == 0)
            return E_INVALIDARG;
        ids[0] = findMember(members(), names[0]);
        // Names beyond the first are those of arguments, which nobody needs.
        for (UINT index = 1; index < count; ++index)
            ids[index] = DISPID_UNKNOWN;
        return count > 1 || ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
    }

 protected:
    virtual std::span<const NamedMember> members() const { return {}; }
};

}  // namespace pelk
