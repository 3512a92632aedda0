#include "mailstore/discovery/finders.h"

namespace pelk {

MailList findPlainMail(const UserPlaces& places) {
    MailList list;
    const auto guess = [&list](const char* program, const std::string& account,
                               const std::string& path) {
        list.push_back({program, account, path, {}, {}, true});
    };
    // Where mutt, mbsync, getmail, procmail and the servers of their own accounts look first, and
    // where the first KMail and Balsa put their folders.
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
