#include "apps/cli/mail_options.h"

#include "mailstore/discovery/mail_discovery.h"

namespace pelk {

MailStoreOptions mailOptions(const Arguments& arguments) {
    MailStoreOptions options = arguments.mail;
    const MailList found = findMail(currentUserPlaces());
    options.purposes = purposesIn(found);
    options.ownAddresses = ownAddressesIn(found);
    return options;
}

}  // namespace pelk
