#include "views/contact_text.h"

namespace pelk {

namespace {

std::string addressText(const Contact& contact) {
    std::string text = " (";
    for (const std::string& address : contact.addresses) {
        text += address;
        text += &address == &contact.addresses.back() ? ')' : '/';
    }
    return text;
}

}  // namespace

std::string joinedAddresses(const Contact& contact) {
    if (contact.addresses.empty())
        return {};
    const std::string text = addressText(contact);
    return text.substr(2, text.size() - 3);
}

std::string describe(const Contact& contact) {
    return contact.name + addressText(contact);
}

std::string withoutAddresses(std::string text, const Contact& contact) {
    const std::string addresses = addressText(contact);
    if (text.ends_with(addresses))
        text.resize(text.size() - addresses.size());
    return text;
}

std::string contactKey(int id) {
    return "contact" + std::to_string(id);
}

}  // namespace pelk
