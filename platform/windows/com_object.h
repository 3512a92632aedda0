#pragma once
// Base classes of the program's own COM objects.

#include <windows.h>
// Requires the include above.
#include <oaidl.h>

#include <atomic>
#include <span>
#include <tuple>
#include <type_traits>

#include "platform/windows/module_lock.h"

namespace pelk {

// COM's interfaces have no virtual destructor; only `Release` destroys the objects.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Counts references, and deletes the object when the last one is released. The count starts at
/// one, for the creator.
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

    /// Whether the identifier also names the first interface.
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

/// A member that can be called by name.
struct NamedMember {
    const wchar_t* name;
    DISPID id;
};

/// Returns the id of a member, ignoring the letter case of its name, or DISPID_UNKNOWN.
inline DISPID findMember(std::span<const NamedMember> members, const wchar_t* name) {
    for (const NamedMember& member : members)
        if (name != nullptr && CompareStringOrdinal(member.name, -1, name, -1, TRUE) == CSTR_EQUAL)
            return member.id;
    return DISPID_UNKNOWN;
}

/// An object that can also be called by name. It uses a table of names instead of a type library.
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
        // Further names are those of arguments, which no member has.
        for (UINT index = 1; index < count; ++index)
            ids[index] = DISPID_UNKNOWN;
        return count > 1 || ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
    }

 protected:
    virtual std::span<const NamedMember> members() const { return {}; }
};

}  // namespace pelk
