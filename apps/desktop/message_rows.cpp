#include "apps/desktop/message_rows.h"

#include <algorithm>
#include <numeric>
#include <sstream>
#include <string_view>

namespace pelk {
namespace {

using Steady = std::chrono::steady_clock;

constexpr std::chrono::seconds kSlowFailure{2};

}  // namespace

void MessageRows::take(StoredFolder& folder) {
    folder_ = &folder;
    rows_.clear();
    folded_.clear();
    read_ = 0;
    gaveUp_ = false;
    const auto count = static_cast<std::size_t>(folder.itemCount());
    rows_.resize(count);
    folded_.resize(count);
}

const MessageRows::Row& MessageRows::row(std::size_t number) {
    if (!rows_[number].isRead)
        read(number);
    return rows_[number];
}

/// A message that cannot be read says so in its row.
void MessageRows::read(std::size_t number) {
    Row& row = rows_[number];
    row.isRead = true;
    try {
        row.summary = folder_->summary(static_cast<int>(number) + 1);
    } catch (const std::exception& error) {
        row.fault = error.what();
        row.summary.kind = ItemKind::Report;
    }
    folded_[number] = language_.folded(row.summary.from + '\n' + row.summary.subject);
}

void MessageRows::readOn(std::chrono::milliseconds time) {
    const Steady::time_point end = Steady::now() + time;
    while (!isDone() && Steady::now() < end) {
        const Steady::time_point begun = Steady::now();
        gaveUp_ = !row(read_).fault.empty() && Steady::now() - begun > kSlowFailure;
        ++read_;
    }
}

bool MessageRows::matches(std::size_t number, const std::vector<std::string>& foldedWords) const {
    return rows_[number].isRead &&
           std::all_of(foldedWords.begin(), foldedWords.end(), [&](const std::string& word) {
               return folded_[number].find(word) != std::string::npos;
           });
}

std::vector<std::size_t> MessageRows::sortedBy(Column column, bool descending) const {
    std::vector<std::size_t> order(rows_.size());
    std::iota(order.begin(), order.end(), 0);
    if (column == kDate) {
        std::stable_sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) {
            return rows_[a].summary.created < rows_[b].summary.created;
        });
    } else {
        std::vector<std::string_view> texts;
        texts.reserve(rows_.size());
        for (const Row& row : rows_)
            texts.emplace_back(column == kFrom ? row.summary.from : row.summary.subject);
        order = language_.alphabeticalOrder(texts);
    }
    if (descending)
        std::reverse(order.begin(), order.end());
    return order;
}

std::vector<std::string> foldedWords(const Language& language, const std::string& text) {
    std::istringstream stream(language.folded(text));
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

}  // namespace pelk
