#include "addin/Connect.h"

#include <new>
#include <string>
#include <utility>

#include "db/date_stamp.h"

namespace pelk {
namespace {

constexpr int kReminderDays = 7;

}  // namespace

Connect::Connect(const UserInterface& ui, const Platform& platform, Loading loading)
    : ui_(ui), platform_(platform), storage_(platform), forms_(ui, platform, storage_) {
    if (loading == Loading::AtOnce)
        load();
}

void Connect::load() {
    loadingTried_ = true;
    ui_.display.setBusyPointer(true);
    try {
        OpenedDatabase opened = storage_.loadDatabase();
        database_ = std::move(opened.database);
        if (opened.notice)
            ui_.dialogs.message(*opened.notice, Buttons::Ok);
    } catch (const Error& error) {
        ui_.dialogs.message(error.what(), Buttons::Ok);
    } catch (const std::bad_alloc&) {
        ui_.dialogs.message(kNotEnoughMemory, Buttons::Ok);
    }
    ui_.display.setBusyPointer(false);
}

void Connect::OnConnection(MailClient& mailClient) {
    mailClient_ = &mailClient;
    buildMenu();
}

void Connect::OnDisconnection() {
    for (const Command& command : commands())
        if (const std::unique_ptr<CommandButton> removed = std::move(this->*command.button))
            removed->remove();
    forms_.unload();
    mailClient_ = nullptr;
}

std::span<const Connect::Command> Connect::commands() {
    static constexpr Command kCommands[] = {
        {"View your community", "Pelk view",
         "Shows the people you write with, and how strong their relations are.",
         &Connect::PelkButtonView_Click, &Connect::PelkButtonView},
        {"Check for new e-mails", "Pelk parse",
         "Counts the e-mails that came in or went out since you last scanned your mailbox.",
         &Connect::PelkButtonParse_Click, &Connect::PelkButtonParse},
        {"Other options", "Pelk others", "Sets which relations count as strong and which as weak.",
         &Connect::PelkButtonOthers_Click, &Connect::PelkButtonOthers},
        {"Help", "Pelk help", "Explains what Pelk does and how to use it.",
         &Connect::PelkButtonHelp_Click, &Connect::PelkButtonHelp},
        {"About", "Pelk about", "Shows the version of Pelk.", &Connect::PelkButtonAbout_Click,
         &Connect::PelkButtonAbout},
    };
    return kCommands;
}

void Connect::buildMenu() {
    const std::unique_ptr<CommandPopup> popup =
        mailClient_->addPopup("Standard", "Pelk", "Pelk popup");
    if (!popup)
        return;
    for (const Command& command : commands())
        this->*command.button =
            popup->addButton(command.caption, command.tag, [this, &command] { run(command); });
}

void Connect::PelkButtonView_Click() {
    const std::string date = requireDatabase().date();
    if (date == kNeverScanned) {
        openScanForm();
        return;
    }
    if (ageInDays(date, platform_.clock.now()) > kReminderDays &&
        ui_.dialogs.message("There are more than 7 days since you last scanned your emails. "
                            "Do you want to scan them now?",
                            Buttons::YesNo) == Answer::Yes) {
        openScanForm();
        return;
    }
    openView();
}

void Connect::PelkButtonParse_Click() {
    openScanForm();
}

void Connect::PelkButtonOthers_Click() {
    forms_.openOthers(requireDatabase());
}

void Connect::PelkButtonHelp_Click() {
    platform_.shell.openHelp();
}

void Connect::PelkButtonAbout_Click() {
    forms_.openAbout();
}

void Connect::undo() {
    if (database_)
        forms_.undo(*database_);
}

void Connect::redo() {
    if (database_)
        forms_.redo(*database_);
}

void Connect::openScanForm() {
    forms_.openScan(requireDatabase(), *mailClient_);
}

void Connect::openView() {
    forms_.openView(requireDatabase());
}

Database& Connect::requireDatabase() {
    if (!loadingTried_)
        load();
    if (!database_)
        throw Error(
            "The contact database could not be loaded. Nothing can be shown or changed until the "
            "problem is solved and the mail client restarted.");
    return *database_;
}

}  // namespace pelk
