#pragma once
// How contacts appear as nodes of a tree.

#include <string>

#include "db/database.h"

namespace pelk {

/// Name and addresses: Ann Smith (a@x/b@y). Without any address the bracket stays open: the text
/// is built from what is there.
std::string describe(const Contact& contact);

/// The key of a contact's top-level node.
std::string contactKey(int id);

}  // namespace pelk
