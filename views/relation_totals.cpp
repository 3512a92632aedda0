#include "views/relation_totals.h"

#include <algorithm>

#include "views/contact_text.h"

namespace pelk {

RelationTotals totalsOf(const Database& database, int contactId) {
    RelationTotals totals;
    double mails = 0;
    for (const Relation& relation : database.relationsOf(contactId)) {
        ++totals.relations;
        mails += relation.weight;
        totals.strongest = std::max(totals.strongest, roundToInteger(relation.weight));
    }
    totals.mails = roundToInteger(mails);
    return totals;
}

std::string counted(std::int64_t count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string contactDetail(const Database& database, int contactId) {
    const RelationTotals totals = totalsOf(database, contactId);
    if (totals.relations == 0)
        return "no relations";
    return counted(static_cast<std::int64_t>(totals.relations), "relation") + ", " +
           counted(totals.mails, "e-mail");
}

std::string relatedDetail(const Database& database, int contactId, int relatedId) {
    const std::optional<Relation> relation = database.relationOfPair(contactId, relatedId);
    const std::optional<Contact> related = database.contact(relatedId);
    if (!relation || !related)
        return {};
    const std::string addresses = joinedAddresses(*related);
    return counted(roundToInteger(relation->weight), "e-mail") +
           (addresses.empty() ? "" : ", " + addresses);
}

}  // namespace pelk
