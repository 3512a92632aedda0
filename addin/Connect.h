#pragma once
// The add-in as the mail client sees it: owns the database, puts the menu on the client's tool
// bar, and opens the forms.

#include <memory>
#include <span>

#include "addin/forms.h"
#include "db/storage.h"
#include "platform/controls.h"
#include "platform/mail_client.h"
#include "platform/platform.h"

namespace pelk {

class Connect {
 public:
    /// One of the things that the user can have done, wherever the mail client offers them.
    struct Command {
        const char* caption;
        /// Names the command to the mail client.
        const char* tag;
        /// What it does, as a sentence for a tip.
        const char* description;
        void (Connect::*clicked)();
        /// Where its button is kept while it stands in the menu.
        std::unique_ptr<CommandButton> Connect::*button;
    };

    /// When the database is loaded: at creation, or by the first command that needs it, in a mail
    /// client that switches off an add-in which keeps it waiting.
    enum class Loading { AtOnce, OnFirstUse };

    /// When loading fails the user is told, and every command that needs the database says so
    /// again; nothing is written over what could not be read.
    Connect(Toolkit& toolkit, const Platform& platform, Loading loading = Loading::AtOnce);

    /// Keeps the mail client, which must stay until disconnection, and builds the menu. Throws
    /// `Error` when the client refuses the menu, but keeps the client all the same.
    void OnConnection(MailClient& mailClient);
    /// Builds the menu of a connection whose client has refused it, as it had no window yet. Throws
    /// `Error` when the client refuses again.
    void buildMenu();
    /// To be called when `OnDisconnection` has to wait for a handler that is under way: a search
    /// would run on for long.
    void abandonSearch() { forms_.abandonSearch(); }
    /// Takes the buttons out of the menu, unloads the forms and lets go of the mail client.
    void OnDisconnection();

    /// All commands, in the order of the menu.
    static std::span<const Command> commands();
    /// Does what a click on the command's button does.
    void run(const Command& command) { (this->*command.clicked)(); }

 private:
    void PelkButtonView_Click();
    void PelkButtonParse_Click();
    void PelkButtonOthers_Click();
    void PelkButtonHelp_Click();
    void PelkButtonAbout_Click();
    void openScanForm();
    void openView();
    void load();
    Database& requireDatabase();

    Platform platform_;
    Storage storage_;
    bool loadingTried_ = false;
    std::unique_ptr<Database> database_;
    Forms forms_;
    MailClient* mailClient_ = nullptr;
    std::unique_ptr<CommandButton> PelkButtonView;
    std::unique_ptr<CommandButton> PelkButtonParse;
    std::unique_ptr<CommandButton> PelkButtonOthers;
    std::unique_ptr<CommandButton> PelkButtonHelp;
    std::unique_ptr<CommandButton> PelkButtonAbout;
};

}  // namespace pelk
