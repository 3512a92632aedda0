#pragma once
// The add-in as the mail client sees it: owns the database, puts the menu on the client's tool
// bar, and opens the forms.

#include <memory>
#include <vector>

#include "addin/forms.h"
#include "db/storage.h"
#include "platform/controls.h"
#include "platform/mail_client.h"
#include "platform/platform.h"

namespace pelk {

class Connect {
 public:
    /// Loads the database. When that fails the user is told, and every command that needs the
    /// database says so again; nothing is written over what could not be read.
    Connect(Toolkit& toolkit, const Platform& platform);

    /// Keeps the mail client, which must stay until disconnection, and builds the menu. Throws
    /// `Error` when the client refuses.
    void OnConnection(MailClient& mailClient);
    /// Takes the buttons out of the menu, unloads the forms and lets go of the mail client.
    void OnDisconnection();

 private:
    void buildMenu();
    std::unique_ptr<CommandButton> addButton(CommandPopup& popup, const char* caption,
                                             const char* tag, void (Connect::*clicked)());
    void PelkButtonView_Click();
    void PelkButtonParse_Click();
    void PelkButtonAbout_Click();
    void openScanForm();
    void openView();
    Database& requireDatabase();

    Platform platform_;
    Storage storage_;
    std::unique_ptr<Database> database_;
    Forms forms_;
    MailClient* mailClient_ = nullptr;
    std::unique_ptr<CommandButton> PelkButtonView;
    std::unique_ptr<CommandButton> PelkButtonParse;
    std::unique_ptr<CommandButton> PelkButtonAbout;
};

}  // namespace pelk
