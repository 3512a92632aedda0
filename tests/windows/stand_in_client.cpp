#include "tests/windows/stand_in_client.h"

#include <ocidl.h>
// The line above comes first.
#include <olectl.h>

#include <algorithm>
#include <functional>

#include "platform/windows/mail/dispatch.h"
#include "tests/windows/scripted_object.h"

namespace pelk {
namespace {

constexpr IID kClickEvents{
    0x000C0351, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

Variant nothing() {
    return variantOf(static_cast<IDispatch*>(nullptr));
}

std::string textIn(const Variant& value) {
    return value.vt == VT_BSTR ? toUtf8({value.bstrVal, SysStringLen(value.bstrVal)}) : "";
}

/// The control as an object; a button reports its clicks through itself.
class ControlObject : public ScriptedObjectWith<IConnectionPointContainer, IConnectionPoint> {
 public:
    explicit ControlObject(std::shared_ptr<BarControl> control) : control_(std::move(control)) {}

    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override {
        if (iid != kClickEvents)
            return CONNECT_E_NOCONNECTION;
        *point = this;
        AddRef();
        return S_OK;
    }
    /// As the mail client does, asks for the interface of the events itself.
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

Variant serveControls(StandInClient& client, const Control& parent);

Variant serveControl(StandInClient& client, const Control& control, const Control& parent) {
    auto served = ComPtr<ControlObject>::attach(new ControlObject(control));
    const auto text = [&served, &control](const wchar_t* name, DISPID id,
                                          std::string BarControl::*field) {
        served->writable(
            name, id,
            [control, field](const Arguments&) {
                return Variant(std::string_view((*control).*field));
            },
            [control, field](const Variant& value) { (*control).*field = textIn(value); });
    };
    text(L"Caption", 0x60040003, &BarControl::caption);
    text(L"OnAction", 0x6004001A, &BarControl::action);
    text(L"Tag", 0x60040023, &BarControl::tag);
    served->writable(
        L"Visible", 0x60040029, [control](const Arguments&) { return variantOf(control->visible); },
        [control](const Variant& value) { control->visible = value.boolVal != VARIANT_FALSE; });
    served->writable(
        L"Style", 0x6005000A, [control](const Arguments&) { return variantOf(control->style); },
        [control](const Variant& value) { control->style = value.lVal; });
    served->member(L"Controls", 0x60050001,
                   [&client, control](const Arguments&) { return serveControls(client, control); });
    served->member(L"Delete", 0x60040007, [control, parent](const Arguments&) {
        if (std::erase(parent->controls, control) == 0)
            throw Raised{E_FAIL, "The control is gone."};
        return Variant();
    });
    return variantOf(served);
}

/// Optional arguments that are not given must say so.
Variant addControl(StandInClient& client, const Control& parent, const Arguments& arguments) {
    if (client.refusesControls)
        throw Raised{E_FAIL, "No room on the tool bar."};
    if (arguments.size() != 5 || arguments[0].vt != VT_I4 || arguments[4].vt != VT_BOOL ||
        !std::all_of(arguments.begin() + 1, arguments.begin() + 4, [](const Variant& value) {
            return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
        }))
        throw Raised{DISP_E_TYPEMISMATCH, ""};
    const auto control = std::make_shared<BarControl>();
    control->type = arguments[0].lVal;
    control->temporary = arguments[4].boolVal != VARIANT_FALSE;
    parent->controls.push_back(control);
    return serveControl(client, control, parent);
}

Variant serveControls(StandInClient& client, const Control& parent) {
    auto controls = makeObject();
    controls->member(L"Count", 0x60030001, [parent](const Arguments&) {
        return variantOf(static_cast<int>(parent->controls.size()));
    });
    controls->member(L"Item", 0, [&client, parent](const Arguments& arguments) {
        return serveControl(client,
                            parent->controls.at(static_cast<std::size_t>(arguments.at(0).lVal) - 1),
                            parent);
    });
    controls->member(L"Add", 0x60030000, [&client, parent](const Arguments& arguments) {
        return addControl(client, parent, arguments);
    });
    return variantOf(controls);
}

Variant serveBars(StandInClient& client) {
    auto bars = makeObject();
    bars->member(L"Item", 0, [&client](const Arguments& arguments) {
        if (arguments.size() != 1 || textIn(arguments[0]) != "Standard")
            throw Raised{E_INVALIDARG, "There is no such bar."};
        auto bar = makeObject();
        bar->member(L"Controls", 0x60040003, [&client](const Arguments&) {
            return serveControls(client, client.standardBar);
        });
        return variantOf(bar);
    });
    return variantOf(bars);
}

Variant serveWindow(StandInClient& client) {
    if (!client.hasWindow)
        return nothing();
    auto window = makeObject();
    window->member(L"CommandBars", 0x2100,
                   [&client](const Arguments&) { return serveBars(client); });
    return variantOf(window);
}

/// A copy of the sinks is told: the click may change them, or the menu itself.
bool fireClick(const std::vector<ComPtr<IDispatch>> sinks) {
    VARIANT_BOOL cancel = VARIANT_FALSE;
    Variant arguments[2];
    arguments[0].vt = VT_BOOL | VT_BYREF;
    arguments[0].pboolVal = &cancel;
    arguments[1].vt = VT_DISPATCH;
    arguments[1].pdispVal = nullptr;
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
    auto application = makeObject();
    application->member(L"GetNamespace", 0x110, [this](const Arguments& arguments) {
        if (arguments.size() != 1 || textIn(arguments[0]) != "MAPI")
            throw Raised{E_INVALIDARG, "There is no such name space."};
        return variantOf(serveMail(mail));
    });
    application->member(L"ActiveExplorer", 0x111,
                        [this](const Arguments&) { return serveWindow(*this); });
    if (!version.empty())
        application->member(L"Version", 0x116, [this](const Arguments&) {
            return Variant(std::string_view(version));
        });
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

ComPtr<IDispatch> ribbonControl(const std::string& tag) {
    auto control = makeObject();
    control->member(L"Tag", 3, [tag](const Arguments&) { return Variant(std::string_view(tag)); });
    return control.query<IDispatch>(IID_IDispatch);
}

}  // namespace pelk
