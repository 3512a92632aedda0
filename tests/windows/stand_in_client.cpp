#include "tests/windows/stand_in_client.h"

#include <ocidl.h>
// Requires the include above.
#include <olectl.h>

#include <algorithm>

#include "tests/windows/scripted_object.h"

namespace pelk {
namespace {

constexpr IID kClickEvents{
    0x000C0351, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

/// A control as an object. A button reports its clicks itself.
class ControlObject : public ScriptedObjectWith<IConnectionPointContainer, IConnectionPoint> {
 public:
    explicit ControlObject(std::shared_ptr<BarControl> control) : control_(std::move(control)) {}

    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override {
        return iid == kClickEvents
                   ? QueryInterface(IID_IConnectionPoint, reinterpret_cast<void**>(point))
                   : E_FAIL;
    }
    /// Queries the interface of the events itself, as the mail client does.
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
        ComPtr<IDispatch> events;
        if (FAILED(sink->QueryInterface(kClickEvents, reinterpret_cast<void**>(events.put()))))
            return CONNECT_E_CANNOTCONNECT;
        control_->sinks.push_back(events);
        *cookie = static_cast<DWORD>(control_->sinks.size());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
        if (cookie == 0 || cookie > control_->sinks.size() || !control_->sinks[cookie - 1])
            return CONNECT_E_NOCONNECTION;
        control_->sinks[cookie - 1].reset();
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
    std::shared_ptr<BarControl> control_;
};

using Control = std::shared_ptr<BarControl>;

Served serveControls(StandInClient& client, const Control& parent);

ComPtr<ControlObject> serveControl(StandInClient& client, const Control& control,
                                   const Control& parent) {
    const auto served = ComPtr<ControlObject>::attach(new ControlObject(control));
    served->writable(L"Caption", std::shared_ptr<std::string>(control, &control->caption));
    served->writable(L"OnAction", std::shared_ptr<std::string>(control, &control->action));
    served->writable(L"Tag", std::shared_ptr<std::string>(control, &control->tag));
    served->writable(L"Visible", std::shared_ptr<bool>(control, &control->visible));
    served->writable(L"Style", std::shared_ptr<int>(control, &control->style));
    served->member(L"Controls", [&client, control] { return serveControls(client, control); });
    served->member(L"Delete", [control, parent] {
        if (std::erase(parent->controls, control) == 0)
            throw Raised{E_FAIL, "The control is gone."};
        return Variant();
    });
    return served;
}

/// Optional arguments that are omitted must be marked as such.
ComPtr<ControlObject> addControl(StandInClient& client, const Control& parent,
                                 const Arguments& arguments) {
    if (client.refusesControls)
        throw Raised{E_FAIL, "No room on the tool bar."};
    if (arguments.size() != 5 || arguments[0].vt != VT_I4 || arguments[4].vt != VT_BOOL ||
        !std::all_of(arguments.begin() + 1, arguments.begin() + 4, [](const Variant& value) {
            return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
        }))
        throw Raised{DISP_E_TYPEMISMATCH, ""};
    const auto control = std::make_shared<BarControl>();
    assign(control->type, arguments[0]);
    assign(control->temporary, arguments[4]);
    parent->controls.push_back(control);
    return serveControl(client, control, parent);
}

Served serveControls(StandInClient& client, const Control& parent) {
    const Served controls =
        makeList(std::shared_ptr<std::vector<Control>>(parent, &parent->controls),
                 [&client, parent](const Control& control) {
                     return serveControl(client, control, parent);
                 });
    controls->member(L"Add", [&client, parent](const Arguments& arguments) {
        return addControl(client, parent, arguments);
    });
    return controls;
}

/// The member returns what `serve` creates, for this text only.
template <typename Function>
void addNamed(const Served& object, const wchar_t* member, std::string_view text, Function serve) {
    object->member(member, [text, serve](const Arguments& arguments) {
        if (arguments.size() != 1 || arguments[0].vt != VT_BSTR ||
            Bstr(arguments[0].bstrVal).utf8() != text)
            throw Raised{E_INVALIDARG, "There is nothing of that name."};
        return serve();
    });
}

Served serveWindow(StandInClient& client) {
    if (!client.hasWindow)
        return {};
    const Served bar = makeObject();
    bar->member(L"Controls", [&client] { return serveControls(client, client.standardBar); });
    const Served bars = makeObject();
    addNamed(bars, L"Item", "Standard", [bar] { return bar; });
    const Served window = makeObject();
    window->member(L"CommandBars", [bars] { return bars; });
    return window;
}

/// Notifies a copy of the sinks, because the click may change them or the menu itself.
bool fireClick(const std::vector<ComPtr<IDispatch>> sinks) {
    VARIANT_BOOL cancel = VARIANT_FALSE;
    Variant arguments[2] = {{}, variantOf(Served())};
    arguments[0].vt = VT_BOOL | VT_BYREF;
    arguments[0].pboolVal = &cancel;
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    int told = 0;
    for (const ComPtr<IDispatch>& sink : sinks)
        if (sink && SUCCEEDED(sink->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr,
                                           nullptr, nullptr)))
            ++told;
    return told == 1;
}

}  // namespace

ComPtr<IDispatch> StandInClient::application() {
    const Served application = makeObject();
    addNamed(application, L"GetNamespace", "MAPI", [this] { return serveMail(mail); });
    application->member(L"ActiveExplorer", [this] { return serveWindow(*this); });
    if (!version.empty())
        application->member(L"Version", [this] { return version; });
    return application.query<IDispatch>(IID_IDispatch);
}

std::vector<std::string> StandInClient::menu() const {
    std::vector<std::string> captions;
    for (const Control& popup : standardBar->controls)
        if (popup->tag == "Pelk popup")
            for (const Control& button : popup->controls)
                captions.push_back(button->caption);
    return captions;
}

bool StandInClient::click(const std::string& caption) {
    for (const Control& popup : standardBar->controls)
        for (const Control& button : popup->controls)
            if (button->caption == caption)
                return fireClick(button->sinks);
    return false;
}

}  // namespace pelk
