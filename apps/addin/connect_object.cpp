#include "apps/addin/connect_object.h"

#include <string>

#include "apps/addin/ribbon.h"
#include "platform/guard.h"

namespace pelk {
namespace {

constexpr UINT kRetryMilliseconds = 20;

enum Member : DISPID {
    kOnConnection = 1,
    kOnDisconnection = 2,
    kOnAddInsUpdate = 3,
    kOnStartupComplete = 4,
    kOnBeginShutdown = 5,
    // Must differ from the five ids above, which the mail client defines.
    kRibbonClick = 100,
};

constexpr NamedMember kMembers[] = {
    {L"OnConnection", kOnConnection},       {L"OnDisconnection", kOnDisconnection},
    {L"OnAddInsUpdate", kOnAddInsUpdate},   {L"OnStartupComplete", kOnStartupComplete},
    {L"OnBeginShutdown", kOnBeginShutdown}, {kRibbonCallback, kRibbonClick},
};

/// Returns argument `index` in the order of the declaration, the reverse of the order in memory.
/// Resolves references; empty when the argument is missing.
Variant argument(const DISPPARAMS* parameters, UINT index) {
    Variant value;
    if (parameters != nullptr && index < parameters->cArgs)
        VariantCopyInd(&value, &parameters->rgvarg[parameters->cArgs - 1 - index]);
    return value;
}

ConnectMode modeIn(const VARIANT& value) {
    return static_cast<ConnectMode>(value.vt == VT_I4 ? value.lVal : 0);
}

}  // namespace

ConnectObject::ConnectObject() {
    guarded(dialogs_, [this] {
        connect_.emplace(UserInterface{toolkit_, dialogs_, display_, settings_, pictures_},
                         platform_.services(), Connect::Loading::OnFirstUse);
    });
}

/// A mail client that is in a hurry does not disconnect.
ConnectObject::~ConnectObject() {
    guarded(dialogs_, [this] { endConnection(); });
}

HRESULT ConnectObject::OnConnection(IDispatch* application, ConnectMode mode, IDispatch*,
                                    SAFEARRAY**) {
    guarded(dialogs_, [this, application, mode] { connect(application, mode); });
    return S_OK;
}

HRESULT ConnectObject::OnDisconnection(int, SAFEARRAY**) {
    guarded(dialogs_, [this] { disconnect(); });
    return S_OK;
}

HRESULT ConnectObject::OnAddInsUpdate(SAFEARRAY**) {
    return S_OK;
}

HRESULT ConnectObject::OnStartupComplete(SAFEARRAY**) {
    guarded(dialogs_, [this] {
        if (std::exchange(menuIsDue_, false))
            connect_->buildMenu();
    });
    return S_OK;
}

HRESULT ConnectObject::OnBeginShutdown(SAFEARRAY**) {
    return S_OK;
}

HRESULT ConnectObject::GetCustomUI(BSTR ribbonId, BSTR* xml) {
    if (xml == nullptr)
        return E_POINTER;
    *xml = nullptr;
    guarded(dialogs_, [this, ribbonId, xml] {
        const std::wstring_view id(ribbonId, SysStringLen(ribbonId));
        if (connect_ && !hasMenu_ && id == kMailWindowRibbon)
            *xml = Bstr(ribbonXml(Connect::commands())).detach();
    });
    return S_OK;
}

HRESULT ConnectObject::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                              EXCEPINFO*, UINT*) {
    switch (id) {
        case kOnConnection:
            return OnConnection(objectIn(argument(parameters, 0)).get(),
                                modeIn(argument(parameters, 1)), nullptr, nullptr);
        case kOnDisconnection:
            return OnDisconnection(0, nullptr);
        case kOnAddInsUpdate:
            return OnAddInsUpdate(nullptr);
        case kOnStartupComplete:
            return OnStartupComplete(nullptr);
        case kOnBeginShutdown:
            return OnBeginShutdown(nullptr);
        case kRibbonClick:
            runCommand([this, parameters] { runByTag(argument(parameters, 0)); });
            return S_OK;
        default:
            return DISP_E_MEMBERNOTFOUND;
    }
}

std::span<const NamedMember> ConnectObject::members() const {
    return kMembers;
}

/// While the mail client starts, its window may not exist yet. The menu is then added when the
/// start is complete.
void ConnectObject::connect(IDispatch* application, ConnectMode mode) {
    disconnect();
    if (!connect_ || client_)
        return;
    client_ = std::make_unique<AutomationClient>(
        application, [this](const std::function<void()>& clicked) { runCommand(clicked); });
    hasMenu_ = !client_->hasRibbon();
    try {
        connect_->OnConnection(*client_);
    } catch (const Error&) {
        if (mode != ConnectMode::Startup)
            throw;
        menuIsDue_ = true;
    }
}

/// A running handler may be inside a form, which must not be destroyed under it. The connection
/// then ends as soon as no handler runs. This function itself counts as one.
void ConnectObject::disconnect() {
    if (client_ && guardedActs() > 1)
        disconnectLater();
    else
        endConnection();
}

void ConnectObject::endConnection() {
    if (!client_)
        return;
    const std::unique_ptr<AutomationClient> leaving = std::move(client_);
    menuIsDue_ = false;
    connect_->OnDisconnection();
}

/// Tries again after a command, or from the thread's message loop, which may run inside a handler.
/// The object lives until then.
void ConnectObject::disconnectLater() {
    connect_->abandonSearch();
    if (retryTimer_ != 0)
        return;
    retryTimer_ = SetTimer(nullptr, 0, kRetryMilliseconds, retry);
    waiting()[retryTimer_] = ComPtr<ConnectObject>(this);
}

void CALLBACK ConnectObject::retry(HWND, UINT, UINT_PTR timer, DWORD) {
    if (const auto object = waiting().find(timer); object != waiting().end())
        object->second->disconnectIfDue();
}

void ConnectObject::disconnectIfDue() {
    if (retryTimer_ == 0 || guardedActs() > 0)
        return;
    KillTimer(nullptr, retryTimer_);
    const auto self = waiting().extract(std::exchange(retryTimer_, 0));
    guarded(dialogs_, [this] { disconnect(); });
}

/// The objects whose disconnection is pending, by their retry timers.
std::map<UINT_PTR, ComPtr<ConnectObject>>& ConnectObject::waiting() {
    static std::map<UINT_PTR, ComPtr<ConnectObject>> objects;
    return objects;
}

/// Runs the command of a ribbon button.
void ConnectObject::runByTag(const VARIANT& ribbonControl) {
    ComPtr<IDispatch> control = objectIn(ribbonControl);
    if (!control || !client_)
        return;
    const std::string tag =
        Dispatch(std::move(control), "a button", std::make_shared<MemberIds>()).text("Tag");
    for (const Connect::Command& command : Connect::commands())
        if (command.tag == tag)
            connect_->run(command);
}

/// The object lives until the command has ended, whatever the mail client does meanwhile.
void ConnectObject::runCommand(const std::function<void()>& act) {
    const ComPtr<ConnectObject> self(this);
    guarded(dialogs_, act);
    disconnectIfDue();
}

}  // namespace pelk
