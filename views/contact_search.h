#pragma once
// Finds contacts by words of their names and addresses.

#include <cstdint>
#include <string_view>
#include <vector>

#include "db/database.h"
#include "views/word_search.h"

namespace pelk {

/// Reads the contacts once per revision of the database.
class ContactSearch {
 public:
    /// The language must outlive this object.
    explicit ContactSearch(const Language& language) : words_(language) {}

    /// Returns the ids of the contacts whose name and addresses contain all words of the query (see
    /// `WordSearch`), in document order.
    std::vector<int> find(const Database& database, std::string_view query);
    /// Reads the contacts unless it has them, or there is no database.
    void prepare(const Database* database);

 private:
    void read(const Database& database);

    WordSearch words_;
    /// By number of the text in `words_`.
    std::vector<int> ids_;
    /// The database and the revision that `words_` was read from.
    const Database* database_ = nullptr;
    std::uint64_t revision_ = 0;
};

}  // namespace pelk
