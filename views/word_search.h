#pragma once
// Finds texts by words that stand anywhere in them, without regard to case and accents.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/language.h"

namespace pelk {

/// Keeps the texts in the form in which they are compared (`Language::folded`). While a query is
/// typed, each search looks only through the hits of the one before.
class WordSearch {
 public:
    /// The language must outlive this object.
    explicit WordSearch(const Language& language) : language_(language) {}

    void clear();
    /// Adds a text. Texts are numbered from 0 in the order in which they are added.
    void add(std::string_view text);

    /// Returns the numbers of the texts that contain all words of the query, ascending. Words are
    /// separated by spaces. A query without words finds nothing. The result is valid until the next
    /// call of any function.
    const std::vector<std::size_t>& find(std::string_view query);

 private:
    void narrow(const std::vector<std::string_view>& words);
    void forgetQuery();

    const Language& language_;
    std::vector<std::string> texts_;
    /// The last query, folded, and what it found.
    std::string query_;
    std::vector<std::size_t> hits_;
};

}  // namespace pelk
