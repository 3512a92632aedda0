#pragma once
// Limits the size and depth of a server's answers before they are parsed.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pelk {

/// libetpan's parser keeps a whole answer in memory and recurses into its parentheses. This class
/// sees every byte first and limits literals, lines, nested parentheses and the whole answer to a
/// command. Sizes are in bytes.
class AnswerGuard {
 public:
    static constexpr std::size_t kMostLiteral = 1UL << 20;
    static constexpr std::size_t kMostLine = 16UL << 20;
    static constexpr std::size_t kMostAnswer = 64UL << 20;
    static constexpr std::size_t kDeepest = 200;

    /// Starts to count the size of the next answer. Call it for each command.
    void beginAnswer() { answer_ = 0; }
    /// Checks the next bytes of the answer. Throws `BrokenAnswer` if they exceed a limit.
    void take(std::string_view bytes);

 private:
    enum class Part { Line, Quoted, Escaped, Literal };
    /// How much of a literal's size, such as "{123}", has been read.
    enum class Count { None, Digits, Closed };

    void takeLine(char c);
    void takeCount(char c);
    void endLine();
    bool mayHoldLiteral() const;

    Part part_ = Part::Line;
    Count count_ = Count::None;
    std::uint64_t literal_ = 0;
    std::size_t line_ = 0;
    std::size_t depth_ = 0;
    std::size_t answer_ = 0;
    /// The first characters of the current line.
    std::array<char, 3> start_{};
};

}  // namespace pelk
