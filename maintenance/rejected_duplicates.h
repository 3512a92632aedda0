#pragma once
// The suggested duplicates that the user has called two persons. The settings keep them from one
// start of the program to the next, as hashes: the settings hold no data of the database.

#include <set>
#include <string>

#include "db/records.h"
#include "platform/settings.h"

namespace pelk {

class RejectedDuplicates {
 public:
    /// The settings outlive this object.
    explicit RejectedDuplicates(Settings& settings);

    /// Contacts are recognized by their first addresses, in any order.
    bool contains(const Contact& one, const Contact& other) const;
    void add(const Contact& one, const Contact& other);
    /// Forgets all of them.
    void clear();

 private:
    void save();

    Settings& settings_;
    std::set<std::string> hashes_;
};

}  // namespace pelk
