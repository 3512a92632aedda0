#include "mailstore/discovery/finders.h"

namespace pelk {

MailList findPlainMail(const UserPlaces& places) {
    MailList list;
    const auto guess = [&list](const char* program, const std::string& account,
                               const std::string& path) {
        list.push_back({program, account, path, {}, {}, true});
    };
    // The default places of mutt, mbsync, getmail, procmail and local servers, and the folders of
    // early versions of KMail and of Balsa.
    for (const char* const folder : {"Maildir", ".maildir", "Mail", "mail", ".mail"})
        guess("Mail folder", folder, places.home + "/" + folder);
    guess("Mail folder", "mail", places.data + "/mail");
    if (!places.inbox.empty())
        guess("System mailbox", places.userName, places.inbox);
    if (!places.userName.empty() && !places.spool.empty())
        guess("System mailbox", places.userName, places.spool + "/" + places.userName);
    return list;
}

}  // namespace pelk
