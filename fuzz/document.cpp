// A plain document, as `pelk load` takes it, and as an encrypted file may hold it.

#include "fuzz/fuzz.h"

namespace pelk {
namespace {

/// Reads and edits a document that nobody has checked.
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
        // The document counts as many already.
    }
    database.addMailBetween(ids.back(), ids[ids.size() / 2]);
    database.moveAddresses(ids.back(), ids[ids.size() / 2]);
    database.removeContacts(ids);
    require(openDocument(database.xml()) != nullptr, "what was edited can be read again",
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
