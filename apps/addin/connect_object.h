#pragma once
// The add-in as COM sees it: `pelk::Connect` on the Windows platform, behind the interfaces of the
// mail client.
//
// The mail client unloads for good an add-in that fails. So whatever goes wrong is shown to the
// user, and the mail client is told that all is well.

#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "addin/Connect.h"
#include "apps/addin/addin_interfaces.h"
#include "platform/windows/com_object.h"
#include "platform/windows/controls/dialogs.h"
#include "platform/windows/controls/toolkit.h"
#include "platform/windows/mail/automation_client.h"
#include "platform/windows/windows_platform.h"

namespace pelk {

class ConnectObject : public AutomationObject<IDTExtensibility2, IRibbonExtensibility> {
 public:
    /// The database is loaded by the first command: a large one takes MSXML more than a second, and
    /// the mail client switches off an add-in that holds up its start for so long.
    ConnectObject();

    HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, ConnectMode mode,
                                           IDispatch* addIn, SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnDisconnection(int mode, SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) override;

    /// The add-in's group for the ribbon of the mail window; a null string for other ribbons, and
    /// when the commands are in a menu.
    HRESULT STDMETHODCALLTYPE GetCustomUI(BSTR ribbonId, BSTR* xml) override;

    /// Clicks on the ribbon come this way; the other members can be called so too.
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
    Win32Toolkit toolkit_{dialogs_, platform_.language()};
    std::unique_ptr<AutomationClient> client_;
    /// None when even its beginning failed.
    std::optional<Connect> connect_;
    /// The commands are in a menu, as the mail client has no ribbon for them.
    bool hasMenu_ = false;
    /// The menu has yet to be built: there was no window for it.
    bool menuIsDue_ = false;
    /// Runs when the mail client has ended the connection while a handler was under way; else 0.
    UINT_PTR retryTimer_ = 0;
};

}  // namespace pelk
