// Fuzzes the parsers of address fields and of header text.

#include "fuzz/fuzz.h"
#include "mailstore/address_list.h"
#include "mailstore/mail_text.h"
#include "platform/utf8.h"
#include "views/email_parser.h"

namespace pelk {
namespace {

void readPerson(const MailPerson& person) {
    require(!person.address.empty() && !person.name.empty(), "a person has an address and a name");
    require(isXmlText(person.address) && isXmlText(person.name), "people are text for a document");
    const std::string lower = language().lowerCase(person.address);
    require(language().lowerCase(lower) == lower, "lower case stays lower case", lower);
    const auto parts = splitAddress(person.address, language());
    if (!parts)
        return;
    std::string joined = parts->front();
    for (std::size_t label = 1; label < parts->size(); ++label)
        joined += (label == 1 ? "@" : ".") + (*parts)[label];
    require(language().lowerCase(joined) == lower, "an address is the sum of its parts", joined);
}

}  // namespace
}  // namespace pelk

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pelk;
    const std::string_view field = textOf(data, size);
    for (const MailPerson& person : parseAddressList(field))
        readPerson(person);
    for (const std::string& text : {toUtf8(field), decodeText(field), cleanText(field)})
        require(isXmlText(cleanText(text)), "text can stand in a document", text);
    require(isXmlText(decodeText(field)), "decoded text can stand in a document");
    require(isXmlText(cleanAddress(field)), "addresses can stand in a document");
    require(equalsIgnoringCase(field, field), "a text equals itself");
    return 0;
}
