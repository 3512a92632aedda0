#pragma once
// The menu on a command bar of the mail client's window.

#include <functional>
#include <memory>
#include <string_view>

#include "platform/mail_client.h"
#include "platform/windows/mail/dispatch.h"

namespace pelk {

/// Runs a click's handler and catches its exceptions.
using ClickGuard = std::function<void(const std::function<void()>&)>;

/// See `MailClient::addPopup`. `application` is the mail client.
std::unique_ptr<CommandPopup> addCommandBarPopup(const Dispatch& application, ClickGuard guard,
                                                 std::string_view bar, std::string_view caption,
                                                 std::string_view tag);

}  // namespace pelk
