#pragma once
// Pictures that record what is drawn.

#include <algorithm>
#include <string>
#include <vector>

#include "platform/picture_output.h"

namespace pelk {

class RecordedCanvas : public Canvas {
 public:
    std::vector<Color> fills;
    std::vector<CanvasPoint> lines;
    std::vector<CanvasPoint> discs;
    std::vector<CanvasPoint> rings;
    std::vector<std::string> texts;
    double smallestText = 1000;

    void fill(const Color& color) override { fills.push_back(color); }
    void line(CanvasPoint from, CanvasPoint, double, const Color&, double) override {
        lines.push_back(from);
    }
    void disc(CanvasPoint center, double, const Color&) override { discs.push_back(center); }
    void ring(CanvasPoint center, double, double, const Color&, double) override {
        rings.push_back(center);
    }
    void text(CanvasPoint, const std::string& text, double size, bool, const Color&,
              const Color&) override {
        texts.push_back(text);
        smallestText = std::min(smallestText, size);
    }
};

/// A file is a line with its format and size.
class RecordedPictures : public PictureOutput {
 public:
    bool offersPdf = true;
    /// What was drawn last, and the title of what was printed.
    RecordedCanvas drawn;
    std::string printed;

    double widthOf(std::string_view text) const override {
        return 0.6 * static_cast<double>(text.size());
    }
    std::string png(CanvasSize size, const DrawPicture& draw) override {
        return record("PNG", size, draw);
    }
    bool hasPdf() const override { return offersPdf; }
    std::string pdf(CanvasSize size, const DrawPicture& draw) override {
        return record("PDF", size, draw);
    }
    bool print(const std::string& title, const DrawPicture& draw) override {
        printed = title;
        record("paper", {800, 550}, draw);
        return true;
    }

 private:
    std::string record(const std::string& kind, CanvasSize size, const DrawPicture& draw) {
        drawn = {};
        draw(drawn, size);
        return kind + " " + std::to_string(static_cast<int>(size.width)) + "x" +
               std::to_string(static_cast<int>(size.height));
    }
};

}  // namespace pelk
