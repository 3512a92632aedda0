#pragma once
// The queries of the database document, as text. Look-ups answer from indexes; these say what
// each look-up means, and the tests hold every index to them.
//
// Values are spliced in as they stand: an address with an apostrophe makes a malformed query.

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

/// The contact that owns an address, given in lower case.
inline std::string contactByAddress(std::string_view address) {
    return "/pelkDB/contacts/contact[emails/email/@value = '" + std::string(address) + "']";
}

inline std::string relationsOf(int id) {
    const std::string text = std::to_string(id);
    return "/pelkDB/relations/relation[@part1='" + text + "' or @part2='" + text + "']";
}

/// The relation of a pair; with the larger id first it selects nothing.
inline std::string relationOfPair(int smallerId, int largerId) {
    return "/pelkDB/relations/relation[@part1='" + std::to_string(smallerId) + "' and @part2='" +
           std::to_string(largerId) + "']";
}

}  // namespace pelk::queries
