#include "views/contact_text.h"

namespace pelk {

std::string describe(const Contact& contact) {
    std::string text = contact.name + " (";
    for (const std::string& address : contact.addresses) {
        text += address;
        text += &address == &contact.addresses.back() ? ')' : '/';
    }
    return text;
}

std::string contactKey(int id) {
    return "contact" + std::to_string(id);
}

}  // namespace pelk
