#pragma once
// A mail client of the tests' own, which an add-in can be loaded into: its application, its window
// with the "Standard" command bar, its mail.

#include "platform/windows/com.h"
#include "tests/windows/stand_in_mail.h"

namespace pelk {

/// A control of a command bar, or the bar itself, with what stands in it.
struct BarControl {
    int type = 0;
    int style = 0;
    bool temporary = false;
    bool visible = false;
    std::string caption;
    std::string tag;
    std::string action;
    std::vector<std::shared_ptr<BarControl>> controls;
    /// Who is told of clicks.
    std::vector<ComPtr<IDispatch>> sinks;
};

class StandInClient {
 public:
    StandInMail mail;
    /// Empty: the client does not tell.
    std::string version = "12.0.0.4518";
    bool hasWindow = true;
    bool refusesControls = false;
    const std::shared_ptr<BarControl> standardBar = std::make_shared<BarControl>();

    ComPtr<IDispatch> application();

    /// The captions in the add-in's menu; none when there is no menu.
    std::vector<std::string> menu() const;
    /// Clicks a button of the menu, and tells whether there is one that reports it.
    bool click(const std::string& caption);
};

}  // namespace pelk
