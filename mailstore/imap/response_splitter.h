#pragma once
// Splits what a server sends into responses, each with its literals (RFC 3501, 4.3).

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace pelk {

class ResponseSplitter {
 public:
    void add(std::string_view bytes);
    /// Returns the next response with its line end, if all of it has been added. It is valid until
    /// the next call of `add` or `takeRest`. Throws `BrokenAnswer` if a literal is too large.
    std::optional<std::string_view> next();
    /// Returns what has not been returned as a response, and forgets it.
    std::string takeRest();

 private:
    std::optional<std::size_t> literalBefore(std::size_t lineEnd) const;

    std::string bytes_;
    /// Where the next response begins.
    std::size_t begin_ = 0;
    /// Where to search for its end. Behind `bytes_` if a literal has not come completely.
    std::size_t searched_ = 0;
};

}  // namespace pelk
