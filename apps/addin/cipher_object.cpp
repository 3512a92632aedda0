#include "apps/addin/cipher_object.h"

#include <new>
#include <string_view>

#include "platform/error.h"
#include "platform/windows/com.h"

namespace pelk {
namespace {

enum Member : DISPID {
    kSetPlainText = 1,
    kGetPlainText = 2,
    kSetKey = 4,
    kGetCipherText = 5,
    kSetCipherText = 6,
};

constexpr NamedMember kMembers[] = {
    {L"SetPlainText", kSetPlainText},   {L"GetPlainText", kGetPlainText},   {L"SetKey", kSetKey},
    {L"GetCipherText", kGetCipherText}, {L"SetCipherText", kSetCipherText},
};

std::string textOf(BSTR text) {
    return toUtf8({text, SysStringLen(text)});
}

/// Stores the reason as error information, if there is memory for it.
void report(const char* reason) noexcept {
    try {
        ComPtr<ICreateErrorInfo> created;
        if (FAILED(CreateErrorInfo(created.put())))
            return;
        created->SetDescription(Bstr(std::string_view(reason)).get());
        SetErrorInfo(0, created.query<IErrorInfo>(IID_IErrorInfo).get());
    } catch (const std::bad_alloc&) {
        SetErrorInfo(0, nullptr);
    }
}

/// Runs `act` and turns its exceptions into error information.
template <typename Act>
HRESULT reported(const Act& act) {
    try {
        act();
        return S_OK;
    } catch (const std::bad_alloc&) {
        report(kNotEnoughMemory);
        return E_FAIL;
    } catch (const std::exception& error) {
        report(error.what());
        return E_FAIL;
    }
}

HRESULT handOut(BSTR* result, std::string_view text) {
    if (result == nullptr)
        return E_POINTER;
    return reported([result, text] { *result = Bstr(text).detach(); });
}

/// Passes the error information to a caller by name.
void moveErrorTo(EXCEPINFO& exception) {
    exception = {};
    exception.scode = E_FAIL;
    ComPtr<IErrorInfo> error;
    if (GetErrorInfo(0, error.put()) == S_OK)
        error->GetDescription(&exception.bstrDescription);
}

}  // namespace

HRESULT CipherObject::SetPlainText(BSTR text) {
    return reported([this, text] {
        cipherText_.clear();
        cipher_.encrypt(textOf(text), [this](std::string_view piece) { cipherText_ += piece; });
    });
}

HRESULT CipherObject::GetPlainText(BSTR* text) {
    return handOut(text, plainText_);
}

HRESULT CipherObject::SetKey(BSTR key, LONG) {
    return reported([this, key] { cipher_.setKey(textOf(key)); });
}

HRESULT CipherObject::GetCipherText(LONG, BSTR* text) {
    return handOut(text, cipherText_);
}

HRESULT CipherObject::SetCipherText(BSTR text) {
    return reported([this, text] { plainText_ = cipher_.decrypt(textOf(text)); });
}

HRESULT CipherObject::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == __uuidof(IDatabaseCipher) ? S_OK : S_FALSE;
}

HRESULT CipherObject::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                             EXCEPINFO* exception, UINT*) {
    Variant first;
    if (parameters != nullptr && parameters->cArgs > 0)
        VariantCopyInd(&first, &parameters->rgvarg[parameters->cArgs - 1]);
    Bstr handedOut;
    const HRESULT code =
        dispatch(id, first.vt == VT_BSTR ? first.bstrVal : nullptr, handedOut.put());
    if (code == E_FAIL && exception != nullptr) {
        moveErrorTo(*exception);
        return DISP_E_EXCEPTION;
    }
    if (handedOut.get() != nullptr && result != nullptr) {
        result->vt = VT_BSTR;
        result->bstrVal = handedOut.detach();
    }
    return code;
}

std::span<const NamedMember> CipherObject::members() const {
    return kMembers;
}

HRESULT CipherObject::dispatch(DISPID id, BSTR text, BSTR* result) {
    switch (id) {
        case kSetPlainText:
            return SetPlainText(text);
        case kGetPlainText:
            return GetPlainText(result);
        case kSetKey:
            return SetKey(text, 0);
        case kGetCipherText:
            return GetCipherText(0, result);
        case kSetCipherText:
            return SetCipherText(text);
        default:
            return DISP_E_MEMBERNOTFOUND;
    }
}

}  // namespace pelk
