#pragma once
// The add-in as a COM object: `pelk::Connect` on the Windows platform, behind the interfaces of the
// mail client.
//
// The mail client permanently disables an add-in that fails. So every failure is shown to the user,
// and the mail client is told that the call succeeded.

#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "addin/Connect.h"
#include "apps/addin/addin_interfaces.h"
#include "platform/windows/com_object.h"
#include "platform/windows/controls/dialogs.h"
#include "platform/windows/controls/display.h"
#include "platform/windows/controls/picture_output.h"
#include "platform/windows/controls/toolkit.h"
#include "platform/windows/mail/automation_client.h"
#include "platform/windows/registry_settings.h"
#include "platform/windows/windows_platform.h"

namespace pelk {

class ConnectObject : public AutomationObject<IDTExtensibility2, IRibbonExtensibility> {
 public:
    /// The first command loads the database: MSXML takes more than a second for a large one, and
    /// the mail client disables an add-in that delays its start for so long.
    ConnectObject();

    HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, ConnectMode mode,
                                           IDispatch* addIn, SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnDisconnection(int mode, SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) override;

    /// Returns the add-in's group for the ribbon of the mail window; a null string for other
    /// ribbons and when the commands are in a menu.
    HRESULT STDMETHODCALLTYPE GetCustomUI(BSTR ribbonId, BSTR* xml) override;

    /// Receives clicks on the ribbon. The other members can be called by name as well.
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override;

 private:
    ~ConnectObject() override;
    std::span<const NamedMember> members() const override;

    void connect(IDispatch* application, ConnectMode mode);
    void disconnect();
    void endConnection();
    void disconnectLater();
    static void CALLBACK retry(HWND, UINT, UINT_PTR timer, DWORD);
    void disconnectIfDue();
    static std::map<UINT_PTR, ComPtr<ConnectObject>>& waiting();
    void runByTag(const VARIANT& ribbonControl);
    void runCommand(const std::function<void()>& act);

    WindowsPlatform platform_;
    Win32Dialogs dialogs_;
    Win32Display display_;
    RegistrySettings settings_;
    Win32PictureOutput pictures_;
    Win32Toolkit toolkit_{dialogs_, platform_.language()};
    std::unique_ptr<AutomationClient> client_;
    /// Empty when the constructor could not create it.
    std::optional<Connect> connect_;
    /// The commands are in a menu because the mail client has no ribbon.
    bool hasMenu_ = false;
    /// The menu must still be added: there was no window for it.
    bool menuIsDue_ = false;
    /// Retries a disconnection that came while a handler was running; else 0.
    UINT_PTR retryTimer_ = 0;
};

}  // namespace pelk
