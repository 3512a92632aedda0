#include "platform/windows/mail/dispatch.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace pelk {
namespace {

std::string codeText(HRESULT code) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "error 0x%08lX", static_cast<unsigned long>(code));
    return text.data();
}

/// The exception information of an automation object.
class Exception : public EXCEPINFO {
 public:
    Exception() : EXCEPINFO{} {}
    Exception(const Exception&) = delete;
    Exception& operator=(const Exception&) = delete;
    ~Exception() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }

    std::string text() {
        if (pfnDeferredFillIn != nullptr)
            pfnDeferredFillIn(this);
        if (SysStringLen(bstrDescription) != 0)
            return toUtf8({bstrDescription, SysStringLen(bstrDescription)});
        return codeText(scode != 0 ? scode : wCode);
    }
};

Variant converted(const Variant& value, VARTYPE type, const std::string& where) {
    Variant result;
    const HRESULT code = VariantChangeType(&result, const_cast<Variant*>(&value), 0, type);
    if (FAILED(code))
        throw Error("The mail client gave an unexpected value for " + where + ".");
    return result;
}

}  // namespace

Variant variantOf(int value) {
    Variant variant;
    variant.vt = VT_I4;
    variant.lVal = value;
    return variant;
}

Variant variantOf(bool value) {
    Variant variant;
    variant.vt = VT_BOOL;
    variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return variant;
}

Variant variantOf(std::string_view utf8) {
    return Variant(utf8);
}

Variant variantOf(const char* utf8) {
    return Variant(std::string_view(utf8));
}

Variant leftOut() {
    Variant variant;
    variant.vt = VT_ERROR;
    variant.scode = DISP_E_PARAMNOTFOUND;
    return variant;
}

ComPtr<IDispatch> objectIn(const VARIANT& value) {
    const bool holdsObject = value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN;
    return ComPtr<IUnknown>(holdsObject ? value.punkVal : nullptr).query<IDispatch>(IID_IDispatch);
}

DISPID MemberIds::find(IDispatch& object, const char* kind, const char* member) {
    const std::pair<std::string, std::string> key(kind, member);
    if (const auto known = ids_.find(key); known != ids_.end())
        return known->second;
    std::wstring name = toWide(member);
    LPOLESTR names = name.data();
    DISPID id = DISPID_UNKNOWN;
    const HRESULT code = object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(code))
        throw Error("The mail client has no " + key.second + " in " + key.first + " (" +
                    codeText(code) + ").");
    return ids_[key] = id;
}

Variant Dispatch::call(const char* member, const Arguments& arguments) const {
    Arguments reversed(arguments.rbegin(), arguments.rend());
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    return invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, parameters);
}

void Dispatch::put(const char* property, const Variant& value) const {
    Variant argument = value;
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&argument, &named, 1, 1};
    invoke(property, DISPATCH_PROPERTYPUT, parameters);
}

std::string Dispatch::text(const char* member, const Arguments& arguments) const {
    const Variant value = converted(call(member, arguments), VT_BSTR, describe(member));
    return toUtf8({value.bstrVal, SysStringLen(value.bstrVal)});
}

int Dispatch::number(const char* member) const {
    return converted(call(member), VT_I4, describe(member)).lVal;
}

Dispatch Dispatch::object(const char* member, const char* kind, const Arguments& arguments) const {
    std::optional<Dispatch> found = objectIfAny(member, kind, arguments);
    if (!found)
        throw Error("The mail client gave nothing for " + describe(member) + ".");
    return std::move(*found);
}

std::optional<Dispatch> Dispatch::objectIfAny(const char* member, const char* kind,
                                              const Arguments& arguments) const {
    ComPtr<IDispatch> object = objectIn(call(member, arguments));
    if (!object)
        return std::nullopt;
    return Dispatch(std::move(object), kind, ids_);
}

std::optional<Dispatch> Dispatch::narrowed(const IID& iid) const {
    ComPtr<IDispatch> other = query<IDispatch>(iid);
    if (!other)
        return std::nullopt;
    return Dispatch(std::move(other), kind_, ids_);
}

Variant Dispatch::invoke(const char* member, WORD flags, DISPPARAMS& parameters) const {
    const DISPID id = ids_->find(*object_.get(), kind_, member);
    const bool isPut = (flags & DISPATCH_PROPERTYPUT) != 0;
    Variant result;
    Exception exception;
    const HRESULT code = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                         isPut ? nullptr : &result, &exception, nullptr);
    if (FAILED(code))
        throw Error("The mail client refuses " + describe(member) + ": " +
                    (code == DISP_E_EXCEPTION ? exception.text() : codeText(code)));
    return result;
}

std::string Dispatch::describe(const char* member) const {
    return std::string(member) + " of " + kind_;
}

}  // namespace pelk
