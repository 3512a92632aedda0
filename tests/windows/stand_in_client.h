#pragma once
// A mail client that can load an add-in: its application, its window with the "Standard" command
// bar, its mail.

#include "platform/windows/com.h"
#include "tests/windows/stand_in_mail.h"

namespace pelk {

/// A control of a command bar, or the bar itself, with its content.
struct BarControl {
    int type = 0;
    int style = 0;
    bool temporary = false;
    bool visible = false;
    std::string caption;
    std::string tag;
    std::string action;
    std::vector<std::shared_ptr<BarControl>> controls;
    /// The receivers of clicks.
    std::vector<ComPtr<IDispatch>> sinks;
};

class StandInClient {
 public:
    StandInMail mail;
    /// Empty when the client does not say.
    std::string version = "12.0.0.4518";
    bool hasWindow = true;
    bool refusesControls = false;
    const std::shared_ptr<BarControl> standardBar = std::make_shared<BarControl>();

    ComPtr<IDispatch> application();

    /// Returns the captions in the add-in's menu; empty when there is no menu.
    std::vector<std::string> menu() const;
    /// Clicks a button of the menu. Returns whether there is one that reports it.
    bool click(const std::string& caption);
};

}  // namespace pelk
