#include "mailstore/header_people.h"

#include <iterator>
#include <string>
#include <utility>

#include "mailstore/address_list.h"

namespace pelk {

std::vector<MailPerson> peopleIn(const MessageHeader& header, std::string_view field) {
    std::vector<MailPerson> all;
    for (const std::string& value : header.all(field)) {
        std::vector<MailPerson> some = parseAddressList(value);
        all.insert(all.end(), std::make_move_iterator(some.begin()),
                   std::make_move_iterator(some.end()));
    }
    return all;
}

std::optional<MailPerson> replyRecipientOf(const MessageHeader& header) {
    for (const char* const field : {"Reply-To", "From", "Sender"}) {
        std::vector<MailPerson> found = peopleIn(header, field);
        if (!found.empty())
            return std::move(found.front());
    }
    return std::nullopt;
}

std::vector<MailPerson> recipientsOf(const MessageHeader& header) {
    std::vector<MailPerson> all;
    for (const std::string_view field : {"To", "Cc", "Bcc"}) {
        std::vector<MailPerson> some = peopleIn(header, field);
        all.insert(all.end(), std::make_move_iterator(some.begin()),
                   std::make_move_iterator(some.end()));
    }
    return all;
}

MailAutomation automationOf(const MessageHeader& header) {
    return readAutomation([&header](std::string_view field) { return header.all(field); });
}

}  // namespace pelk
