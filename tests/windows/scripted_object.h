#pragma once
// An automation object made of functions, as the mail client's own objects look from outside.

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/com.h"
#include "platform/windows/com_object.h"

namespace pelk {

/// What a member of an object raises. Without a text the call itself fails with the code.
struct Raised {
    HRESULT code = E_FAIL;
    std::string text;
};

using Arguments = std::vector<Variant>;

inline Variant variantOf(IDispatch* object) {
    Variant variant;
    variant.vt = VT_DISPATCH;
    variant.pdispVal = object;
    if (object != nullptr)
        object->AddRef();
    return variant;
}

template <typename Interface>
Variant variantOf(const ComPtr<Interface>& object) {
    return variantOf(static_cast<IDispatch*>(object.get()));
}

template <typename... More>
class ScriptedObjectWith : public AutomationObject<IDispatch, More...> {
 public:
    using Call = std::function<Variant(const Arguments&)>;
    using Put = std::function<void(const Variant&)>;

    /// A property or method, by the name and number that it has in the mail client.
    void member(const wchar_t* name, DISPID id, Call call) {
        names_.push_back({name, id});
        calls_[id] = std::move(call);
    }
    void writable(const wchar_t* name, DISPID id, Call call, Put put) {
        member(name, id, std::move(call));
        puts_[id] = std::move(put);
    }
    /// The object is of the dual interface with that identifier.
    void setKind(const IID& iid) { kind_ = iid; }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT*) override {
        try {
            const Arguments arguments(
                std::make_reverse_iterator(variants(parameters) + parameters->cArgs),
                std::make_reverse_iterator(variants(parameters)));
            if ((flags & DISPATCH_PROPERTYPUT) != 0)
                return write(id, *parameters, arguments);
            const auto call = calls_.find(id);
            if (call == calls_.end())
                return DISP_E_MEMBERNOTFOUND;
            Variant value = call->second(arguments);
            if (result != nullptr)
                std::swap(*result, static_cast<VARIANT&>(value));
            return S_OK;
        } catch (const Raised& raised) {
            return raise(raised, exception);
        }
    }

 private:
    static const Variant* variants(const DISPPARAMS* parameters) {
        return static_cast<const Variant*>(parameters->rgvarg);
    }

    HRESULT write(DISPID id, const DISPPARAMS& parameters, const Arguments& arguments) {
        if (parameters.cNamedArgs != 1 || parameters.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT ||
            arguments.size() != 1)
            return DISP_E_PARAMNOTFOUND;
        const auto put = puts_.find(id);
        if (put == puts_.end())
            return DISP_E_MEMBERNOTFOUND;
        put->second(arguments[0]);
        return S_OK;
    }

    /// The text is filled in when it is asked for, which a caller must not forget.
    static HRESULT raise(const Raised& raised, EXCEPINFO* exception) {
        if (raised.text.empty() || exception == nullptr)
            return raised.code;
        *exception = {};
        exception->scode = raised.code;
        exception->bstrHelpFile = Bstr(raised.text).detach();
        exception->pfnDeferredFillIn = [](EXCEPINFO* filled) {
            std::swap(filled->bstrDescription, filled->bstrHelpFile);
            return S_OK;
        };
        return DISP_E_EXCEPTION;
    }

    std::span<const NamedMember> members() const override { return names_; }
    bool isOtherName(REFIID iid) const override { return iid == kind_; }

    IID kind_ = IID_NULL;
    std::vector<NamedMember> names_;
    std::map<DISPID, Call> calls_;
    std::map<DISPID, Put> puts_;
};

using ScriptedObject = ScriptedObjectWith<>;

inline ComPtr<ScriptedObject> makeObject() {
    return ComPtr<ScriptedObject>::attach(new ScriptedObject());
}

}  // namespace pelk
