#pragma once
// An automation object made of functions that looks like the mail client's own.

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/windows/com.h"
#include "platform/windows/com_object.h"
#include "platform/windows/mail/dispatch.h"

namespace pelk {

/// The exception that a member raises. Without a text the call itself fails with the code.
struct Raised {
    HRESULT code = E_FAIL;
    std::string text;
};

using Arguments = std::vector<Variant>;

inline Variant variantOf(Variant value) {
    return value;
}

template <typename Interface>
Variant variantOf(const ComPtr<Interface>& object) {
    Variant variant;
    variant.vt = VT_DISPATCH;
    variant.pdispVal = static_cast<IDispatch*>(ComPtr<Interface>(object).detach());
    return variant;
}

inline void assign(std::string& place, const Variant& value) {
    place = toUtf8({value.bstrVal, SysStringLen(value.bstrVal)});
}
template <typename Number>
void assign(Number& place, const Variant& value) {
    place = std::is_same_v<Number, bool> ? value.boolVal != VARIANT_FALSE : value.lVal;
}

template <typename... More>
class ScriptedObjectWith : public AutomationObject<IDispatch, More...> {
 public:
    /// A property or method that returns the function's result, an object, text or number. The
    /// function may ignore the arguments.
    template <typename Function>
    void member(const wchar_t* name, Function function) {
        if constexpr (std::is_invocable_v<Function>)
            add(name, [function](const Arguments&) { return variantOf(function()); });
        else
            add(name, [function](const Arguments& given) { return variantOf(function(given)); });
    }
    template <typename Value>
    void writable(const wchar_t* name, std::shared_ptr<Value> place) {
        member(name, [place] { return *place; });
        members_.back().put = [place](const Variant& value) { assign(*place, value); };
    }
    /// Gives the object a dual interface with that identifier.
    void setKind(const IID& iid) { kind_ = iid; }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT*) override {
        if (id < 0 || static_cast<std::size_t>(id) >= members_.size())
            return DISP_E_MEMBERNOTFOUND;
        const Member& member = members_[static_cast<std::size_t>(id)];
        const auto first = static_cast<const Variant*>(parameters->rgvarg);
        if ((flags & DISPATCH_PROPERTYPUT) != 0) {
            if (!member.put || parameters->cArgs != 1 || parameters->cNamedArgs != 1 ||
                parameters->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)
                return DISP_E_PARAMNOTFOUND;
            member.put(*first);
            return S_OK;
        }
        try {
            Variant value =
                member.call(Arguments(std::make_reverse_iterator(first + parameters->cArgs),
                                      std::make_reverse_iterator(first)));
            if (result != nullptr)
                std::swap(*result, static_cast<VARIANT&>(value));
            return S_OK;
        } catch (const Raised& raised) {
            return raise(raised, exception);
        }
    }

 private:
    struct Member {
        std::function<Variant(const Arguments&)> call;
        std::function<void(const Variant&)> put;
    };

    void add(const wchar_t* name, std::function<Variant(const Arguments&)> call) {
        names_.push_back({name, static_cast<DISPID>(members_.size())});
        members_.push_back({std::move(call), {}});
    }

    static HRESULT CALLBACK fillIn(EXCEPINFO* exception) {
        std::swap(exception->bstrDescription, exception->bstrHelpFile);
        return S_OK;
    }

    /// The text is filled in on demand, by a callback that the caller must not forget.
    static HRESULT raise(const Raised& raised, EXCEPINFO* exception) {
        if (raised.text.empty() || exception == nullptr)
            return raised.code;
        *exception = {};
        exception->scode = raised.code;
        exception->bstrHelpFile = Bstr(raised.text).detach();
        exception->pfnDeferredFillIn = fillIn;
        return DISP_E_EXCEPTION;
    }

    std::span<const NamedMember> members() const override { return names_; }
    bool isOtherName(REFIID iid) const override { return iid == kind_; }

    IID kind_ = IID_NULL;
    std::vector<NamedMember> names_;
    std::vector<Member> members_;
};

using ScriptedObject = ScriptedObjectWith<>;
using Served = ComPtr<ScriptedObject>;

inline Served makeObject() {
    return Served::attach(new ScriptedObject());
}

/// A collection behind a pointer; `itemAt` creates an object from an item.
template <typename Pointer, typename Function>
Served makeList(Pointer list, Function itemAt) {
    const Served served = makeObject();
    served->member(L"Count", [list] { return static_cast<int>(list->size()); });
    served->member(L"Item", [list, itemAt](const Arguments& arguments) {
        const int index = arguments.empty() || arguments[0].vt != VT_I4 ? 0 : arguments[0].lVal;
        if (index < 1 || static_cast<std::size_t>(index) > list->size())
            throw Raised{E_INVALIDARG, "Array index out of bounds."};
        return itemAt((*list)[static_cast<std::size_t>(index) - 1]);
    });
    return served;
}

}  // namespace pelk
