#include "mailstore/discovery/mail_discovery.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <set>
#include <system_error>

#include "mailstore/discovery/finders.h"
#include "mailstore/folder_place.h"
#include "mailstore/message_files.h"
#include "platform/mail_client.h"

namespace pelk {
namespace {

constexpr auto kFinders = {findThunderbirdMail, findEvolutionMail, findKMailMail,
                           findGearyMail,       findAppleMail,     findPlainMail};

/// Returns whether the path is absolute. A relative one would depend on the working directory.
bool isWholePath(const std::string& path) {
    return path.starts_with('/') && path.find('\0') == std::string::npos;
}

/// Returns whether no earlier entry led to the same place.
bool isNew(const FoundMail& mail, std::set<DirectoryId>& seen) {
    struct stat status {};
    // An unreadable path is listed with its error.
    return !mail.fault.empty() || ::stat(mail.path.c_str(), &status) != 0 ||
           seen.insert({status.st_dev, status.st_ino}).second;
}

class Measure {
 public:
    explicit Measure(const std::function<bool()>& isCancelled) : isCancelled_(isCancelled) {}

    void through(const FolderPlace& store) {
        anyFolder(
            store,
            [this](const FolderPlace& place) {
                addFolder(place);
                return isCancelled_();
            },
            [this](const Error& error) { addFault(error); });
    }

    MailExtent extent;

 private:
    void addFolder(const FolderPlace& place) {
        switch (place.kind) {
            case FolderPlace::Kind::Empty:
                return;
            case FolderPlace::Kind::Unknown:
                return addFault(UnknownMailFormat(place.path));
            case FolderPlace::Kind::Geary:
                // The folders of an account are in one file.
                if (place.gearyId == GearyStore::kTop)
                    return addBox(place.path);
                break;
            case FolderPlace::Kind::Directory:
                if (!hasMessageFiles(place.path))
                    return;
                addMessages(place.path);
                break;
            case FolderPlace::Kind::Mbox:
            case FolderPlace::Kind::SingleMessage:
                addBox(place.path);
        }
        ++extent.folders;
    }

    void addBox(const std::string& path) {
        if (::faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0)
            addFault(
                Error(path + " cannot be read: " + std::generic_category().message(errno) + "."));
        addFile(path);
    }

    void addMessages(const std::string& path) {
        const MessageFiles messages = listMessageFiles(path);
        for (const MessageFiles::File& file : messages.files) {
            if (isCancelled_())
                return;
            addFile(messages.directories[file.directory].path + file.name);
        }
    }

    void addFile(const std::string& path) {
        struct stat status {};
        if (::stat(path.c_str(), &status) != 0)
            return;
        extent.bytes += static_cast<std::uint64_t>(status.st_size);
        // No message has arrived in the future.
        extent.changed = std::max<std::int64_t>(
            extent.changed, std::min<std::int64_t>(status.st_mtim.tv_sec, std::time(nullptr)));
    }

    void addFault(const Error& error) {
        if (extent.unreadable++ == 0)
            extent.firstUnreadable = error.what();
    }

    const std::function<bool()>& isCancelled_;
};

}  // namespace

MailList findMail(const UserPlaces& places) {
    MailList list;
    if (places.home.empty())
        return list;
    std::set<DirectoryId> seen;
    for (const auto find : kFinders)
        for (FoundMail& mail : find(places))
            if (isWholePath(mail.path) && !isAbsent(mail.path) && isNew(mail, seen))
                list.push_back(std::move(mail));
    return list;
}

FolderPurposes purposesIn(const MailList& list) {
    FolderPurposes purposes;
    const auto add = [&purposes](const FoundMail& mail, const std::string& name,
                                 DefaultFolder kind) {
        if (!name.empty())
            purposes[purposeKey(canonicalPlace(mail.path) + "/" + name)] = kind;
    };
    for (const FoundMail& mail : list) {
        try {
            add(mail, mail.deletedItems, DefaultFolder::DeletedItems);
            add(mail, mail.outbox, DefaultFolder::Outbox);
        } catch (const Error&) {
            // Opening this mail reports the fault to the user.
        }
    }
    return purposes;
}

std::vector<std::string> ownAddressesIn(const MailList& list) {
    std::set<std::string> addresses;
    for (const FoundMail& mail : list)
        addresses.insert(mail.ownAddresses.begin(), mail.ownAddresses.end());
    return {addresses.begin(), addresses.end()};
}

MailExtent measureMail(const FoundMail& mail, const std::function<bool()>& isCancelled) {
    Measure measure(isCancelled);
    MailExtent& extent = measure.extent;
    extent.fault = mail.fault;
    try {
        if (extent.fault.empty())
            measure.through(findStore(mail.path));
        extent.isNothing = mail.isGuess && extent.bytes == 0 && extent.unreadable == 0;
    } catch (const NoMailFound& error) {
        extent.fault = mail.whenNothing.empty() ? error.what() : mail.whenNothing;
        extent.isNothing = mail.isGuess;
    } catch (const Error& error) {
        extent.fault = error.what();
    }
    return extent;
}

}  // namespace pelk
