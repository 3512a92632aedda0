// What every toolkit must do with pictures for files.

#include "platform/error.h"
#include "tests/support/test_platform.h"

namespace pelk {
namespace {

class Pictures : public testing::Test {
 protected:
    /// Returns a number of four bytes in the header of a PNG file.
    static int numberAt(const std::string& png, std::size_t place) {
        int number = 0;
        for (std::size_t byte = 0; byte < 4; ++byte)
            number = number * 256 + static_cast<unsigned char>(png.at(place + byte));
        return number;
    }

    TestPlatform platform_;
    std::unique_ptr<PictureOutput> pictures_ = makePictureOutput();
};

TEST_F(Pictures, FilesHaveTheSizeInPixels) {
    CanvasSize drawn;
    const auto draw = [&](Canvas& canvas, CanvasSize size) {
        drawn = size;
        canvas.fill({255, 255, 255});
        canvas.text({10, 40}, "Ann \xD0\x9E\xD0\xBB\xD1\x8C\xD0\xB3\xD0\xB0", 12, false, {0, 0, 0},
                    {255, 255, 255});
    };
    const std::string png = pictures_->png({300, 200}, draw);
    EXPECT_EQ(drawn, (CanvasSize{300, 200}));
    EXPECT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1A\n");
    EXPECT_EQ(numberAt(png, 16), 300);
    EXPECT_EQ(numberAt(png, 20), 200);
    EXPECT_NE(png, pictures_->png({300, 200}, [](Canvas& canvas, CanvasSize) {
        canvas.fill({255, 255, 255});
    })) << "the text is missing";
    EXPECT_THROW(pictures_->png({1e6, 1e6}, draw), Error);
    if (pictures_->hasPdf())
        EXPECT_EQ(pictures_->pdf({300, 200}, draw).substr(0, 5), "%PDF-");
    else
        EXPECT_THROW(pictures_->pdf({300, 200}, draw), Error);
}

TEST_F(Pictures, MeasureTexts) {
    const double one = pictures_->widthOf("Ann");
    EXPECT_GT(one, 1);
    EXPECT_LT(one, 3);
    EXPECT_NEAR(pictures_->widthOf("AnnAnn"), 2 * one, 0.1);
    EXPECT_EQ(pictures_->widthOf(""), 0);
}

}  // namespace
}  // namespace pelk
