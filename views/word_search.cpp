#include "views/word_search.h"

#include <algorithm>
#include <numeric>

namespace pelk {
namespace {

std::vector<std::string_view> wordsOf(std::string_view query) {
    std::vector<std::string_view> words;
    while (!query.empty()) {
        const std::size_t end = std::min(query.find(' '), query.size());
        if (end > 0)
            words.push_back(query.substr(0, end));
        query.remove_prefix(std::min(end + 1, query.size()));
    }
    return words;
}

bool containsAll(std::string_view text, const std::vector<std::string_view>& words) {
    return std::all_of(words.begin(), words.end(), [text](std::string_view word) {
        return text.find(word) != std::string_view::npos;
    });
}

}  // namespace

void WordSearch::clear() {
    texts_.clear();
    forgetQuery();
}

void WordSearch::add(std::string_view text) {
    texts_.push_back(language_.folded(text));
    forgetQuery();
}

void WordSearch::forgetQuery() {
    query_.clear();
    hits_.clear();
}

/// Each word of a query is part of a word of any longer query that begins with it, so a longer
/// query finds no other texts.
const std::vector<std::size_t>& WordSearch::find(std::string_view query) {
    std::string folded = language_.folded(query);
    const std::vector<std::string_view> words = wordsOf(folded);
    const bool isLonger = !wordsOf(query_).empty() && folded.starts_with(query_);
    if (!isLonger) {
        hits_.resize(words.empty() ? 0 : texts_.size());
        std::iota(hits_.begin(), hits_.end(), std::size_t{0});
    }
    narrow(words);
    query_ = std::move(folded);
    return hits_;
}

void WordSearch::narrow(const std::vector<std::string_view>& words) {
    std::erase_if(hits_, [&](std::size_t text) { return !containsAll(texts_[text], words); });
}

}  // namespace pelk
