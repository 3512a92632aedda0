#include "platform/windows/mail/command_bars.h"

#include <ocidl.h>

#include <optional>
#include <utility>

#include "platform/windows/mail/click_sink.h"

namespace pelk {
namespace {

constexpr int kControlButton = 1;
constexpr int kControlPopup = 10;
constexpr int kStyleCaption = 2;

/// Makes the mail client load the add-in for a click if it has not yet.
constexpr const char* kAction = "!<Pelk.Connect>";

constexpr const char* kControls = "the controls of a command bar";
constexpr const char* kControl = "a control of a command bar";

/// Connects a sink to a button while this object exists.
class ClickConnection {
 public:
    ClickConnection(const Dispatch& button, std::function<void()> clicked)
        : sink_(ComPtr<ClickSink>::attach(new ClickSink(std::move(clicked)))) {
        const auto container =
            button.query<IConnectionPointContainer>(IID_IConnectionPointContainer);
        if (!container ||
            FAILED(container->FindConnectionPoint(kButtonEventsInterface, point_.put())) ||
            FAILED(point_->Advise(sink_.get(), &cookie_)))
            throw Error("The mail client does not report clicks on its command bars.");
    }
    ClickConnection(const ClickConnection&) = delete;
    ClickConnection& operator=(const ClickConnection&) = delete;
    ~ClickConnection() {
        sink_->disarm();
        point_->Unadvise(cookie_);
    }

 private:
    ComPtr<ClickSink> sink_;
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

class BarButton : public CommandButton {
 public:
    BarButton(Dispatch button, std::function<void()> clicked)
        : button_(std::move(button)), connection_(std::in_place, button_, std::move(clicked)) {}

    void remove() override {
        connection_.reset();
        try {
            button_.call("Delete");
        } catch (const Error&) {
            // The window is closing, or another program removed the button. A temporary button is
            // gone in either case.
        }
    }

 private:
    // The button sends clicks only while a reference to it is held.
    Dispatch button_;
    std::optional<ClickConnection> connection_;
};

Dispatch addControl(const Dispatch& parent, int type) {
    return parent.object("Controls", kControls)
        .object("Add", kControl,
                {variantOf(type), leftOut(), leftOut(), leftOut(), variantOf(true)});
}

/// Sets the texts first, so that an incomplete control is never seen.
void describe(const Dispatch& control, std::string_view caption, std::string_view tag) {
    control.put("Caption", variantOf(caption));
    control.put("Tag", variantOf(tag));
    control.put("OnAction", variantOf(kAction));
    control.put("Visible", variantOf(true));
}

class BarPopup : public CommandPopup {
 public:
    BarPopup(Dispatch popup, ClickGuard guard)
        : popup_(std::move(popup)), guard_(std::move(guard)) {}

    std::unique_ptr<CommandButton> addButton(std::string_view caption, std::string_view tag,
                                             std::function<void()> clicked) override {
        const Dispatch button = addControl(popup_, kControlButton);
        button.put("Style", variantOf(kStyleCaption));
        describe(button, caption, tag);
        return std::make_unique<BarButton>(
            button, [guard = guard_, handler = std::move(clicked)] { guard(handler); });
    }

 private:
    Dispatch popup_;
    ClickGuard guard_;
};

/// Whether the control has the tag. Controls of other add-ins may refuse to answer.
bool bearsTag(const Dispatch& control, std::string_view tag) {
    try {
        return control.text("Tag") == tag;
    } catch (const Error&) {
        return false;
    }
}

/// Controls are numbered from 1, and deleting one moves the later ones up.
void deleteLeftovers(const Dispatch& bar, std::string_view tag) {
    const Dispatch controls = bar.object("Controls", kControls);
    for (int index = controls.number("Count"); index >= 1; --index) {
        const Dispatch control = controls.object("Item", kControl, {variantOf(index)});
        if (bearsTag(control, tag))
            control.call("Delete");
    }
}

}  // namespace

std::unique_ptr<CommandPopup> addCommandBarPopup(const Dispatch& application, ClickGuard guard,
                                                 std::string_view bar, std::string_view caption,
                                                 std::string_view tag) {
    const std::optional<Dispatch> explorer =
        application.objectIfAny("ActiveExplorer", "the mail window");
    if (!explorer)
        throw Error("The mail client shows no mail window that could hold the menu.");
    const Dispatch standard = explorer->object("CommandBars", "the command bars")
                                  .object("Item", "a command bar", {variantOf(bar)});
    deleteLeftovers(standard, tag);
    Dispatch popup = addControl(standard, kControlPopup);
    describe(popup, caption, tag);
    return std::make_unique<BarPopup>(std::move(popup), std::move(guard));
}

}  // namespace pelk
