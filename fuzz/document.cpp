// Fuzzes a plain document, as `pelk load` and an encrypted file may contain it.

#include "fuzz/fuzz.h"

namespace pelk {
namespace {

/// Reads and edits an unchecked document.
void edit(Database& database) {
    std::vector<int> ids{0, 1, 2, kMaxContactId};
    database.forEachContact([&ids](const Contact& contact) { ids.push_back(contact.id); });
    for (const int id : ids) {
        database.contact(id);
        database.relationsOf(id);
        database.relationOfPair(id, ids.back());
    }
    database.thresholds();
    database.strongestWeight();
    database.setDate(database.date());
    database.countMails(1);
    try {
        database.addContact("Ann", "ann@a.example");
    } catch (const ContactLimitReached&) {
        // `totalContacts` is at its limit already.
    }
    database.addMailBetween(ids.back(), ids[ids.size() / 2]);
    database.moveAddresses(ids.back(), ids[ids.size() / 2]);
    database.removeContacts(ids);
    require(openDocument(database.xml()) != nullptr, "an edited document can be read again",
            database.xml());
}

}  // namespace
}  // namespace pelk

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pelk;
    const std::unique_ptr<Database> database = openDocument(textOf(data, size));
    if (!database)
        return 0;
    if (faultOf(database->root()).empty())
        requireSoundAndRoundTrip(*database);
    edit(*database);
    return 0;
}
