#include "apps/desktop/message_rows.h"

#include <algorithm>
#include <numeric>
#include <string_view>

namespace pelk {
namespace {

using Steady = std::chrono::steady_clock;

constexpr std::chrono::seconds kSlowFailure{2};

}  // namespace

void MessageRows::take(StoredFolder& folder) {
    folder_ = &folder;
    rows_.clear();
    search_.clear();
    read_ = 0;
    gaveUp_ = false;
    rows_.resize(static_cast<std::size_t>(folder.itemCount()));
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
}

void MessageRows::readOn(std::chrono::milliseconds time) {
    const Steady::time_point end = Steady::now() + time;
    while (!isDone() && Steady::now() < end) {
        const Steady::time_point begun = Steady::now();
        const Row& next = row(read_);
        gaveUp_ = !next.fault.empty() && Steady::now() - begun > kSlowFailure;
        search_.add(next.summary.from + '\n' + next.summary.subject);
        ++read_;
    }
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

}  // namespace pelk
