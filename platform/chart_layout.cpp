#include "platform/chart_layout.h"

#include <algorithm>
#include <cstdint>

#include "platform/readable_color.h"

namespace pelk {
namespace {

/// The numbers that the scale shows: multiples of `step`, so many on each side of the line.
struct Scale {
    std::uint64_t step = 1;
    std::uint64_t above = 0;
    std::uint64_t below = 0;

    std::uint64_t total() const { return step * (above + below); }
};

std::uint64_t roundedUp(std::uint64_t number, std::uint64_t step) {
    return number / step + (number % step != 0 ? 1 : 0);
}

/// Returns the finest scale of at most `most` intervals. The steps are 1, 2, 5, 10, 20, 50 ...
Scale scaleFor(const std::vector<ChartBar>& bars, std::uint64_t most) {
    std::uint64_t above = 1;
    std::uint64_t below = 0;
    for (const ChartBar& bar : bars) {
        above = std::max(above, bar.above);
        below = std::max(below, bar.below);
    }
    Scale scale;
    for (std::uint64_t power = 1;; power *= 10)
        for (const std::uint64_t digit : {1, 2, 5}) {
            scale = {digit * power, roundedUp(above, digit * power),
                     roundedUp(below, digit * power)};
            if (scale.above + scale.below <= most)
                return scale;
        }
}

class Layouter {
 public:
    Layouter(const ChartContent& content, const ChartSpace& space)
        : content_(content), space_(space), gap_(space.lineHeight / 3) {}

    ChartLayout layout() {
        top_ = space_.lineHeight + gap_;
        height_ = space_.pixels.height - top_ - 2 * space_.lineHeight - 2 * gap_;
        constexpr int kFewestIntervals = 2;
        if (height_ < kFewestIntervals * space_.lineHeight)
            return {};
        scale_ =
            scaleFor(content_.bars,
                     static_cast<std::uint64_t>(std::max(height_ / (2 * space_.lineHeight), 2)));
        left_ = gap_ + std::max(space_.widthOf(std::to_string(scale_.step * scale_.above)),
                                space_.widthOf(std::to_string(scale_.step * scale_.below)));
        width_ = space_.pixels.width - left_ - gap_;
        middle_ = top_ + pixelsOf(scale_.step * scale_.above);
        if (width_ < space_.lineHeight)
            return {};
        addScale();
        addBars();
        addLabels();
        addLegend(content_.above, true, 0);
        addLegend(content_.below, false, space_.pixels.height - space_.lineHeight);
        return std::move(layout_);
    }

 private:
    int pixelsOf(std::uint64_t mails) const {
        return static_cast<int>(static_cast<double>(mails) / static_cast<double>(scale_.total()) *
                                height_);
    }

    void addScale() {
        layout_.middleLine = {left_, middle_, width_, 1};
        addScaleText(0, middle_);
        for (std::uint64_t line = 1; line <= scale_.above; ++line)
            addScaleLine(line, middle_ - pixelsOf(line * scale_.step));
        for (std::uint64_t line = 1; line <= scale_.below; ++line)
            addScaleLine(line, middle_ + pixelsOf(line * scale_.step));
    }
    void addScaleLine(std::uint64_t line, int y) {
        layout_.scaleLines.push_back({left_, y, width_, 1});
        addScaleText(line, y);
    }
    void addScaleText(std::uint64_t line, int y) {
        layout_.texts.push_back(
            {{0, y - space_.lineHeight / 2, left_ - gap_ / 2, space_.lineHeight},
             std::to_string(line * scale_.step),
             ChartAlign::Right});
    }

    /// The share of a bar in the width, as whole pixels that leave no gap to the next one.
    Rect column(std::size_t bar) const {
        const auto edge = [this](std::size_t number) {
            return left_ + static_cast<int>(number * static_cast<std::size_t>(width_) /
                                            content_.bars.size());
        };
        return {edge(bar), top_, edge(bar + 1) - edge(bar), height_};
    }

    /// A few bars stay bars and do not become walls.
    void addBars() {
        constexpr int kWidestBar = 4;
        for (std::size_t bar = 0; bar < content_.bars.size(); ++bar) {
            const Rect space = column(bar);
            const int air = std::min(space.width / 4, space_.lineHeight);
            const int width = std::clamp(space.width - air, 1, kWidestBar * space_.lineHeight);
            const int left = space.left + (space.width - width) / 2;
            const auto heightOf = [this](std::uint64_t mails) {
                return mails == 0 ? 0 : std::max(1, pixelsOf(mails));
            };
            if (const int height = heightOf(content_.bars[bar].above))
                layout_.boxes.push_back({{left, middle_ - height, width, height}, true});
            if (const int height = heightOf(content_.bars[bar].below))
                layout_.boxes.push_back({{left, middle_ + 1, width, height}, false});
        }
    }

    void addLabels() {
        int free = 0;
        for (std::size_t bar = 0; bar < content_.bars.size(); ++bar) {
            const std::string& label = content_.bars[bar].label;
            const Rect space = column(bar);
            const int width = space_.widthOf(label);
            const int left =
                std::min(space.left + (space.width - width) / 2, space_.pixels.width - width);
            if (label.empty() || left < free)
                continue;
            layout_.texts.push_back({{left, top_ + height_ + gap_, width, space_.lineHeight},
                                     label,
                                     ChartAlign::Center});
            free = left + width + 2 * gap_;
        }
    }

    void addLegend(const std::string& text, bool isAbove, int top) {
        const int side = space_.lineHeight * 2 / 3;
        layout_.boxes.push_back(
            {{left_, top + (space_.lineHeight - side) / 2, side, side}, isAbove});
        const int left = left_ + side + gap_;
        layout_.texts.push_back({{left, top, space_.pixels.width - left, space_.lineHeight}, text});
    }

    const ChartContent& content_;
    const ChartSpace& space_;
    const int gap_;
    Scale scale_;
    /// The space of the bars.
    int left_ = 0;
    int top_ = 0;
    int width_ = 0;
    int height_ = 0;
    int middle_ = 0;
    ChartLayout layout_;
};

}  // namespace

ChartLayout layOut(const ChartContent& content, const ChartSpace& space) {
    return Layouter(content, space).layout();
}

ChartColors chartColors(const Color& text, const Color& background) {
    constexpr Color kBlue{0, 90, 181};
    constexpr Color kOrange{196, 84, 0};
    constexpr int kFaint = 75;
    return {readableColor(kBlue, background), readableColor(kOrange, background),
            mixedColor(text, background, kFaint)};
}

}  // namespace pelk
