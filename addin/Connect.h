#pragma once
// The add-in as the mail client sees it: owns the database, adds the menu to the client's toolbar,
// and opens the forms.
//
// Not thread-safe: all calls on the thread that owns the windows.

#include <memory>
#include <span>
#include <string>

#include "addin/forms.h"
#include "db/storage.h"
#include "platform/mail_client.h"
#include "platform/platform.h"
#include "platform/user_interface.h"

namespace pelk {

class Connect {
 public:
    /// A command for the user, in a menu or on a ribbon.
    struct Command {
        const char* caption;
        /// Identifies the command to the mail client.
        const char* tag;
        /// A sentence for the tooltip.
        const char* description;
        void (Connect::*clicked)();
        /// The member that owns the command's button while it is in the menu.
        std::unique_ptr<CommandButton> Connect::*button;
    };

    /// Whether the constructor or the first command loads the database. `OnFirstUse` is for mail
    /// clients that disable add-ins which start slowly.
    enum class Loading { AtOnce, OnFirstUse };

    /// If loading fails, shows a message. Commands that need the database then throw `Error`, and
    /// the unreadable file is never overwritten.
    Connect(const UserInterface& ui, const Platform& platform, Loading loading = Loading::AtOnce);

    /// Stores the mail client, which must outlive the connection, and builds the menu. When the
    /// client refuses the menu, throws `Error` but stays connected.
    void OnConnection(MailClient& mailClient);
    /// Builds the menu later, for a client that refused it because it had no window yet. Throws
    /// `Error` when the client refuses again.
    void buildMenu();
    /// Ends a running search. Called when `OnDisconnection` has to wait for a handler to return, as
    /// a search may take long.
    void abandonSearch() { forms_.abandonSearch(); }
    /// Removes the buttons from the menu, unloads the forms and releases the mail client.
    void OnDisconnection();

    /// Undo or redo the last step of the user, save, and update the open forms. Do nothing when
    /// there is none.
    void undo();
    void redo();
    /// Return what such a command would concern, as in "deletion of example.org"; empty when there
    /// is nothing to undo or redo.
    std::string undoName() const { return database_ ? database_->undoName() : std::string(); }
    std::string redoName() const { return database_ ? database_->redoName() : std::string(); }

    /// All commands, in the order of the menu.
    static std::span<const Command> commands();
    /// Runs a command as a click on its button does.
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

    UserInterface ui_;
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
