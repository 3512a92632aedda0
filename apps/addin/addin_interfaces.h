#pragma once
// The interfaces by which the mail client calls the add-in, and that of the cipher.

#include <windows.h>
// Requires the include above.
#include <oaidl.h>

namespace pelk {

enum class ConnectMode : int { AfterStartup = 0, Startup = 1 };

}  // namespace pelk

// COM's interfaces have no virtual destructor; only `Release` destroys the objects.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Starts and ends an add-in of the mail client. `custom` may be null.
struct IDTExtensibility2 : public IDispatch {
    virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, pelk::ConnectMode mode,
                                                   IDispatch* addIn, SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnDisconnection(int mode, SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) = 0;
};

/// Returns what the add-in puts on a ribbon.
struct IRibbonExtensibility : public IDispatch {
    virtual HRESULT STDMETHODCALLTYPE GetCustomUI(BSTR ribbonId, BSTR* xml) = 0;
};

/// Encrypts and decrypts a database document, see db/database_cipher.h. The order of the functions
/// and the unused arguments are part of the interface.
struct IDatabaseCipher : public IDispatch {
    virtual HRESULT STDMETHODCALLTYPE SetPlainText(BSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPlainText(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE Unused() = 0;
    virtual HRESULT STDMETHODCALLTYPE SetKey(BSTR key, LONG zero) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCipherText(LONG zero, BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetCipherText(BSTR text) = 0;
};

#pragma GCC diagnostic pop

__CRT_UUID_DECL(IDTExtensibility2, 0xB65AD801, 0xABAF, 0x11D0, 0xBB, 0x8B, 0x00, 0xA0, 0xC9, 0x0F,
                0x27, 0x44)
__CRT_UUID_DECL(IRibbonExtensibility, 0x000C0396, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00,
                0x00, 0x00, 0x46)
__CRT_UUID_DECL(IDatabaseCipher, 0xC4778A66, 0x972F, 0x42E4, 0x87, 0xC5, 0x5C, 0xC1, 0x6F, 0x79,
                0x31, 0xCA)

namespace pelk {

inline constexpr CLSID kConnectClass{
    0x41765D26, 0x3A07, 0x48AF, {0x95, 0x6A, 0x1D, 0x61, 0x46, 0xC5, 0xF1, 0x8B}};
inline constexpr CLSID kDatabaseCipherClass{
    0xA440BD76, 0xCFE1, 0x4D46, {0xAB, 0x1F, 0x15, 0xF2, 0x38, 0x43, 0x7A, 0x3D}};

}  // namespace pelk
