#include "apps/cli/mail_options.h"

#include "mailstore/discovery/mail_discovery.h"

namespace pelk {

MailStoreOptions mailOptions(const Arguments& arguments) {
    MailStoreOptions options = arguments.mail;
    options.purposes = purposesIn(findMail(currentUserPlaces()));
    return options;
}

}  // namespace pelk
