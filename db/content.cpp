#include "db/content.h"

#include <string>
#include <utility>
#include <vector>

#include "db/damaged_data.h"
#include "db/queries.h"

namespace pelk {
namespace {

/// Returns the only element that the query selects. Throws `DamagedData` for none or several.
XmlElement onlyElement(const XmlElement& root, const char* query) {
    const std::vector<XmlElement> found = root.select(query);
    if (found.size() != 1)
        throw DamagedData("It is not a contact database: it holds " + std::to_string(found.size()) +
                          " elements " + query + " instead of one.");
    return found.front();
}

}  // namespace

Content::Content(std::unique_ptr<XmlDocument> loaded) : document(std::move(loaded)) {
    root = document->root();
    if (!root || root.name() != "pelkDB")
        throw DamagedData("It is not a contact database: its root element is not pelkDB.");
    contactsContainer = onlyElement(root, queries::kContactsContainer);
    relationsContainer = onlyElement(root, queries::kRelationsContainer);
    contacts = ContactIndex(contactsContainer);
    relations = RelationIndex(relationsContainer);
}

void Content::reindexIfStale() {
    if (!indexesAreStale)
        return;
    ContactIndex freshContacts(contactsContainer);
    RelationIndex freshRelations(relationsContainer);
    contacts = std::move(freshContacts);
    relations = std::move(freshRelations);
    indexesAreStale = false;
}

}  // namespace pelk
