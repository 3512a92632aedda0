#pragma once
// Menus on the tool bars of the mail window.

#include <QMainWindow>
#include <QMenu>
#include <memory>
#include <string_view>

#include "platform/dialogs.h"
#include "platform/mail_client.h"

namespace pelk {

/// Adds a pop-up menu to the named tool bar and replaces one with the same tag. Its buttons are
/// also entries of `menu`. `dialogs` shows the exceptions of its buttons. Throws `Error` when there
/// is no such tool bar.
std::unique_ptr<CommandPopup> addToolBarPopup(QMainWindow& window, QMenu& menu, Dialogs& dialogs,
                                              std::string_view bar, std::string_view caption,
                                              std::string_view tag);

}  // namespace pelk
