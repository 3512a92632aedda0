#pragma once
// Keeps answers of a server within bounds, before they are parsed.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pelk {

/// The parser of libetpan holds an answer in memory and goes into its parentheses by recursion.
/// What is to reach it passes here first: literals, lines, parentheses inside each other and the
/// whole answer to a command have a largest size.
class AnswerGuard {
 public:
    static constexpr std::size_t kMostLiteral = 1UL << 20;
    static constexpr std::size_t kMostLine = 16UL << 20;
    static constexpr std::size_t kMostAnswer = 64UL << 20;
    static constexpr std::size_t kDeepest = 200;

    /// Begins the answer to a command.
    void beginAnswer() { answer_ = 0; }
    /// Looks at the next bytes of the answer. Fails with a `BrokenAnswer`.
    void take(std::string_view bytes);

 private:
    enum class Part { Line, Quoted, Escaped, Literal };
    /// How much of "{123}" has been read.
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
    /// The first characters of the line.
    std::array<char, 3> start_{};
};

}  // namespace pelk
