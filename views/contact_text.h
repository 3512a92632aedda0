#pragma once
// The texts and keys of contacts in a tree.

#include <string>

#include "db/database.h"

namespace pelk {

/// Returns name and addresses: Ann Smith (a@x/b@y). Without an address the parenthesis stays open,
/// on purpose.
std::string describe(const Contact& contact);

/// Returns a text from a user without the contact's own addresses at its end, as `describe` adds
/// them.
std::string withoutAddresses(std::string text, const Contact& contact);

/// Returns the addresses with slashes between them: a@x/b@y.
std::string joinedAddresses(const Contact& contact);

/// Returns the key of the contact's top-level node.
std::string contactKey(int id);

}  // namespace pelk
