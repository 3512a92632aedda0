#pragma once
// The database cipher for COM clients.

#include <string>

#include "apps/addin/addin_interfaces.h"
#include "db/database_cipher.h"
#include "platform/windows/cng_crypto.h"
#include "platform/windows/com_object.h"

namespace pelk {

/// A failure, such as a damaged cipher text, fails the call and leaves the reason as error
/// information.
class CipherObject : public AutomationObject<IDatabaseCipher, ISupportErrorInfo> {
 public:
    HRESULT STDMETHODCALLTYPE SetPlainText(BSTR text) override;
    HRESULT STDMETHODCALLTYPE GetPlainText(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE Unused() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetKey(BSTR key, LONG zero) override;
    HRESULT STDMETHODCALLTYPE GetCipherText(LONG zero, BSTR* text) override;
    HRESULT STDMETHODCALLTYPE SetCipherText(BSTR text) override;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT*) override;

 private:
    std::span<const NamedMember> members() const override;
    HRESULT dispatch(DISPID id, BSTR text, BSTR* result);

    CngCrypto crypto_;
    DatabaseCipher cipher_{crypto_};
    std::string plainText_;
    std::string cipherText_;
};

}  // namespace pelk
