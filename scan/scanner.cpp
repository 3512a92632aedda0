#include "scan/scanner.h"

#include <utility>

#include "db/date_stamp.h"
#include "platform/utf8.h"

namespace pelk {

const char* const kDatabaseFullMessage =
    "The database is full: all of its 32767 contact numbers are taken. People who were met for the "
    "first time in this scan have been left out; everything else has been counted.";

Scanner::Scanner(Database& database, const Language& language, ScanProgress& progress)
    : database_(database), language_(language), progress_(progress), cutOff_(database.date()) {}

ScanOutcome Scanner::scan(MailSession& session) {
    const std::size_t contactsBefore = database_.contactCount();
    const std::size_t relationsBefore = database_.relationCount();
    session_ = &session;
    attempt([this] { scanTree(session_->folders()); });
    outcome_.contacts = database_.contactCount() - contactsBefore;
    outcome_.relations = database_.relationCount() - relationsBefore;
    return std::move(outcome_);
}

/// Runs a step that a fault of the mail system ends, and nothing but that step.
template <typename Step>
void Scanner::attempt(const Step& step) {
    try {
        step();
    } catch (const NotAMailItem&) {
        // Mail folders hold such items; they are passed over.
    } catch (const Error& error) {
        if (outcome_.faults++ == 0)
            outcome_.firstFault = error.what();
    }
}

/// Each folder's own items come before its subfolders, which are entered whatever their kind.
void Scanner::scanTree(std::unique_ptr<MailFolders> folders) {
    for (std::unique_ptr<MailFolder> folder = folders->first(); folder; folder = folders->next()) {
        attempt([this, &folder] {
            if (folder->defaultItemType() == kMailItemType)
                scanFolder(*folder);
        });
        attempt([this, &folder] { scanTree(folder->folders()); });
    }
}

/// Leaves out the items of the outbox and of the deleted items, but not the folders inside them:
/// what is filed there is meant to be kept.
void Scanner::scanFolder(MailFolder& folder) {
    for (const DefaultFolder kind : session_->leftOutFolders())
        if (session_->isDefaultFolder(folder, kind))
            return;
    progress_.folderStarted(folder.name());
    const int count = folder.itemCount();
    progress_.itemsCounted(count);
    for (int index = 1; index <= count; ++index) {
        progress_.itemStarted(index);
        scanItem(folder, index);
    }
}

/// An item that is no e-mail leaves the e-mail before it in place, which is then looked at again
/// and, when it is new, counted once more. Weights have always been counted so, and stay
/// comparable only as long as they are.
void Scanner::scanItem(MailFolder& folder, int index) {
    attempt([this, &folder, index] { item_ = folder.mailItem(index); });
    attempt([this] {
        if (item_ && formatStamp(item_->creationTime()) > cutOff_)
            recordMail(*item_);
    });
}

void Scanner::recordMail(MailItem& item) {
    const std::optional<MailPerson> sender = item.replyRecipient();
    if (!sender)
        return;
    const int senderId = findOrAddContact(*sender);
    database_.countMails(1);
    ++outcome_.mails;
    const int count = item.recipientCount();
    for (int index = 1; index <= count; ++index)
        attempt([this, &item, senderId, index] {
            database_.addMailBetween(senderId, findOrAddContact(item.recipient(index)));
        });
}

/// The id of the person's contact, by address; the name of a known contact stays as it is. 0, with
/// which no relation is counted, for a person who cannot be looked up or added.
int Scanner::findOrAddContact(const MailPerson& person) {
    const std::string address = language_.lowerCase(cleanText(person.address));
    if (address.empty())
        return 0;
    try {
        const int id = database_.contactIdByAddress(address);
        return id != 0 ? id : database_.addContact(cleanText(person.name), address);
    } catch (const MalformedQuery&) {
        return 0;
    } catch (const ContactLimitReached&) {
        outcome_.databaseFull = true;
        return 0;
    }
}

ScanOutcome scanAndSave(Database& database, Storage& storage, const Platform& platform,
                        MailSession& session, ScanProgress& progress) {
    ScanOutcome outcome = Scanner(database, platform.language, progress).scan(session);
    database.setDate(formatStamp(platform.clock.now()));
    storage.saveDatabase(database);
    return outcome;
}

}  // namespace pelk
