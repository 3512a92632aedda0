#include "maintenance/relation_details.h"

namespace pelk {

std::string RelationDetails::sentence() const {
    // The second number always takes the plural, on purpose.
    return std::to_string(weight) + (weight == 1 ? " email has" : " emails have") +
           " been exchanged between these contacts, while in the most strong relation " +
           std::to_string(strongest) + " emails have been exchanged.";
}

std::optional<RelationDetails> relationDetails(const Database& database, int id1, int id2) {
    const std::optional<Relation> relation = database.relationOfPair(id1, id2);
    if (!relation)
        return std::nullopt;
    return RelationDetails{database.nameOf(id1), database.nameOf(id2),
                           roundToInteger(relation->weight), database.strongestWeight()};
}

}  // namespace pelk
