#include "mailstore/line_reader.h"

#include <algorithm>

namespace pelk {
namespace {

constexpr std::size_t kBlockSize = 64UL << 10;

}  // namespace

LineReader::LineReader(MessagePlace place, std::uint64_t from)
    : place_(std::move(place)),
      at_(std::min(from, place_.length)),
      block_(std::min<std::uint64_t>(kBlockSize, place_.length - at_)) {}

bool LineReader::fill() {
    std::copy(left_.begin(), left_.end(), block_.begin());
    const std::size_t wanted =
        std::min<std::uint64_t>(block_.size() - left_.size(), place_.length - at_);
    const std::size_t count =
        place_.file->read(place_.offset + at_, block_.data() + left_.size(), wanted);
    if (count < wanted)
        place_.file->failChanged();
    at_ += count;
    left_ = {block_.data(), left_.size() + count};
    return count > 0;
}

std::optional<std::string_view> LineReader::next() {
    std::size_t end = left_.find('\n');
    if (end == std::string_view::npos && fill())
        end = left_.find('\n');
    if (left_.empty())
        return std::nullopt;
    std::string_view line = left_.substr(0, end);
    left_.remove_prefix(end == std::string_view::npos ? left_.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

}  // namespace pelk
