#pragma once
// The mail client that loaded the add-in, by its automation objects.

#include <memory>
#include <string_view>

#include "platform/mail_client.h"
#include "platform/windows/mail/command_bars.h"
#include "platform/windows/mail/dispatch.h"

namespace pelk {

/// Everything is reached from the application that is given, as the mail client trusts only what
/// comes from there.
class AutomationClient : public MailClient {
 public:
    /// `guard` runs the handlers of clicks. Throws `Error` when there is no application.
    AutomationClient(IDispatch* application, ClickGuard guard);

    /// The number before the first point of its version; 0 when it has none or does not tell.
    int majorVersion() const;
    /// Whether its window has a ribbon. There the commands stand on it, and `addPopup` adds
    /// nothing.
    bool hasRibbon() const;

    std::unique_ptr<MailSession> session() override;
    std::unique_ptr<CommandPopup> addPopup(std::string_view bar, std::string_view caption,
                                           std::string_view tag) override;

 private:
    Dispatch application_;
    ClickGuard guard_;
};

}  // namespace pelk
