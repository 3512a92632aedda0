#include "views/contact_search.h"

#include "views/contact_text.h"

namespace pelk {

std::vector<int> ContactSearch::find(const Database& database, std::string_view query) {
    prepare(&database);
    std::vector<int> found;
    for (const std::size_t text : words_.find(query))
        found.push_back(ids_[text]);
    return found;
}

void ContactSearch::prepare(const Database* database) {
    if (database != nullptr && (database_ != database || revision_ != database->revision()))
        read(*database);
}

void ContactSearch::read(const Database& database) {
    words_.clear();
    ids_.clear();
    database.forEachContact([this](const Contact& contact) {
        words_.add(describe(contact));
        ids_.push_back(contact.id);
    });
    database_ = &database;
    revision_ = database.revision();
}

}  // namespace pelk
