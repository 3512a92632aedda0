#pragma once
// The mail client that loaded the add-in, through its automation objects.

#include <memory>
#include <string_view>

#include "platform/mail_client.h"
#include "platform/windows/mail/command_bars.h"
#include "platform/windows/mail/dispatch.h"

namespace pelk {

/// Reaches everything from the given application, because the mail client trusts only objects from
/// there.
class AutomationClient : public MailClient {
 public:
    /// `guard` runs the handlers of clicks. Throws `Error` when there is no application.
    AutomationClient(IDispatch* application, ClickGuard guard);

    /// Returns the number before the first point of the version; 0 when it is unknown.
    int majorVersion() const;
    /// Whether the window has a ribbon. The commands are on it then, and `addPopup` adds nothing.
    bool hasRibbon() const;

    std::unique_ptr<MailSession> session() override;
    std::unique_ptr<CommandPopup> addPopup(std::string_view bar, std::string_view caption,
                                           std::string_view tag) override;

 private:
    Dispatch application_;
    ClickGuard guard_;
};

}  // namespace pelk
