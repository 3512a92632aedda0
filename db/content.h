#pragma once
// The document of a database with the indexes of its elements.

#include <memory>

#include "db/contact_index.h"
#include "db/relation_index.h"
#include "platform/xml.h"

namespace pelk {

struct Content {
    /// Throws `DamagedData` when the document is not that of a contact database.
    explicit Content(std::unique_ptr<XmlDocument> loaded);

    /// Makes the indexes anew if they are stale. When this throws, they are as before.
    void reindexIfStale();

    /// Shared with the edits in a journal that may have to free elements of it.
    std::shared_ptr<XmlDocument> document;
    XmlElement root;
    XmlElement contactsContainer;
    XmlElement relationsContainer;
    ContactIndex contacts;
    RelationIndex relations;
    /// Whether the document was changed without the indexes.
    bool indexesAreStale = false;
};

}  // namespace pelk
