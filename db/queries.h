#pragma once
// The XPath queries of the database document. They define what each look-up finds; the program
// answers from indexes, and the tests compare these with the queries.
//
// Values are inserted without escaping, so an address with an apostrophe makes a malformed query.

#include <string>
#include <string_view>

namespace pelk::queries {

inline constexpr const char* kRoot = "/pelkDB";
inline constexpr const char* kContactsContainer = "/pelkDB/contacts";
inline constexpr const char* kRelationsContainer = "/pelkDB/relations";
inline constexpr const char* kContacts = "/pelkDB/contacts/contact";
inline constexpr const char* kRelations = "/pelkDB/relations/relation";

inline std::string contactById(int id) {
    return "/pelkDB/contacts/contact[@id='" + std::to_string(id) + "']";
}

/// Selects the contact that owns an address, given in lower case.
inline std::string contactByAddress(std::string_view address) {
    return "/pelkDB/contacts/contact[emails/email/@value = '" + std::string(address) + "']";
}

inline std::string relationsOf(int id) {
    const std::string text = std::to_string(id);
    return "/pelkDB/relations/relation[@part1='" + text + "' or @part2='" + text + "']";
}

/// Selects the relation of a pair. Selects nothing when the larger id comes first.
inline std::string relationOfPair(int smallerId, int largerId) {
    return "/pelkDB/relations/relation[@part1='" + std::to_string(smallerId) + "' and @part2='" +
           std::to_string(largerId) + "']";
}

}  // namespace pelk::queries
