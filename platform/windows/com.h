#pragma once
// Owners of COM interfaces, strings and variants.

#include <windows.h>
// Requires the include above.
#include <oleauto.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "platform/windows/wide_text.h"

namespace pelk {

/// Owns one reference to an interface, or none.
template <typename Interface>
class ComPtr {
 public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    /// Adds a reference.
    explicit ComPtr(Interface* pointer) : pointer_(pointer) {
        if (pointer_ != nullptr)
            pointer_->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPtr() { reset(); }

    void reset() {
        // Clears the pointer before it releases the object, because `Release` may run any code.
        if (Interface* const pointer = std::exchange(pointer_, nullptr))
            pointer->Release();
    }
    /// Gives the reference to the caller.
    Interface* detach() { return std::exchange(pointer_, nullptr); }
    /// Takes ownership of a reference without adding one.
    static ComPtr attach(Interface* pointer) {
        ComPtr owner;
        owner.pointer_ = pointer;
        return owner;
    }
    /// Returns the place for an output parameter and releases the current object.
    Interface** put() {
        reset();
        return &pointer_;
    }

    Interface* get() const { return pointer_; }
    Interface* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }

    /// Queries another interface; null when the object does not have it.
    template <typename Other>
    ComPtr<Other> query(const IID& iid) const {
        ComPtr<Other> other;
        if (pointer_ != nullptr &&
            FAILED(pointer_->QueryInterface(iid, reinterpret_cast<void**>(other.put()))))
            return {};
        return other;
    }

 private:
    Interface* pointer_ = nullptr;
};

/// Owns a BSTR. A null BSTR is an empty string. The constructor throws `std::bad_alloc`.
class Bstr {
 public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
        if (text_ == nullptr)
            throw std::bad_alloc();
    }
    explicit Bstr(std::string_view utf8) : Bstr(std::wstring_view(toWide(utf8))) {}
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    BSTR detach() { return std::exchange(text_, nullptr); }
    BSTR* put() {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }
    std::wstring_view wide() const { return {text_, SysStringLen(text_)}; }
    std::string utf8() const { return toUtf8(wide()); }

 private:
    BSTR text_ = nullptr;
};

/// Owns a VARIANT. The constructor from text throws `std::bad_alloc`.
class Variant : public VARIANT {
 public:
    Variant() { VariantInit(this); }
    explicit Variant(std::string_view utf8) : Variant() {
        bstrVal = Bstr(utf8).detach();
        vt = VT_BSTR;
    }
    Variant(const Variant& other) : Variant() {
        if (VariantCopy(this, const_cast<Variant*>(&other)) == E_OUTOFMEMORY)
            throw std::bad_alloc();
    }
    Variant(Variant&& other) noexcept : VARIANT(other) { VariantInit(&other); }
    Variant& operator=(Variant other) noexcept {
        std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
        return *this;
    }
    ~Variant() { VariantClear(this); }
};

}  // namespace pelk
