// Drawing, saving and printing pictures.

#include "map/draw_scene.h"
#include "map/picture_files.h"
#include "map/picture_saving.h"
#include "tests/map/map_fixture.h"
#include "tests/support/core_platform.h"

namespace pelk {
namespace {

TEST(DrawScene, leavesOutWhatIsOutOfView) {
    Scene scene;
    scene.width = 100;
    scene.height = 50;
    scene.lines = {{{-10, 10}, {200, 10}, 1, {}, 1}, {{-10, -10}, {200, -10}, 1, {}, 1}};
    scene.circles = {{{-4, 20}, 5, {}, 0}, {{-9, 20}, 5, {}, 1}};
    RecordedCanvas canvas;
    draw(scene, canvas);
    EXPECT_EQ(canvas.fills.size(), 1U);
    EXPECT_EQ(canvas.lines, (std::vector<CanvasPoint>{{-10, 10}}));
    EXPECT_EQ(canvas.discs, (std::vector<CanvasPoint>{{-4, 20}, {-4, 20}})) << "with its outline";
}

class PictureSaving : public testing::Test {
 protected:
    /// Returns the content of the file that the user names; empty when none is written.
    std::string saved(const std::string& path, const std::string& filter) {
        core_.dialogs.expectFile("Saving the picture", filter, path);
        savePicture(arrangement_, core_.ui(), core_.platform());
        core_.dialogs.expectAllShown();
        return core_.files.files[path];
    }
    std::string savedPng(const std::string& size) {
        core_.files.files.clear();
        core_.dialogs.expectFile("Saving the picture", kPictureFileFilterWithPdf, "/a.PNG");
        core_.dialogs.expectInput("Saving the picture", "Width and height in pixels:", "1200x900",
                                  size);
        if (!size.empty() && !pictureSizeIn(size))
            core_.dialogs.expectMessage(
                "The size must be a width and a height from 100 to 20000, such as 1200x900.");
        savePicture(arrangement_, core_.ui(), core_.platform());
        core_.dialogs.expectAllShown();
        return core_.files.files["/a.PNG"];
    }

    CorePlatform core_;
    Arrangement arrangement_ = arrangeCommunity(chainOfCliques(3, 5));
};

TEST_F(PictureSaving, writesTheFormatOfTheEnding) {
    EXPECT_EQ(saved("/a.svg", kPictureFileFilterWithPdf).substr(0, 5), "<?xml");
    EXPECT_EQ(saved("/a.pdf", kPictureFileFilterWithPdf), "PDF 1200x900");
    EXPECT_EQ(core_.pictures.drawn.texts[0], "15 people, grouped by their e-mails");
    EXPECT_EQ(saved("", kPictureFileFilterWithPdf), "");
    core_.dialogs.expectFile("Saving the picture", kPictureFileFilterWithPdf, "/a.gif");
    core_.dialogs.expectMessage("The name must end in .svg, .png or .pdf.");
    savePicture(arrangement_, core_.ui(), core_.platform());
    core_.pictures.offersPdf = false;
    core_.dialogs.expectFile("Saving the picture", kPictureFileFilter, "/b.pdf");
    core_.dialogs.expectMessage("The name must end in .svg or .png.");
    savePicture(arrangement_, core_.ui(), core_.platform());
    EXPECT_FALSE(core_.files.files.contains("/b.pdf"));
}

TEST_F(PictureSaving, asksForTheSizeOfAPng) {
    EXPECT_EQ(savedPng("640x480"), "PNG 640x480");
    EXPECT_EQ(savedPng(""), "");
    for (const char* size : {"640", "99x100", "100x20001", "x", "640 x 480", "-640x480"})
        EXPECT_EQ(savedPng(size), "") << size;
}

TEST_F(PictureSaving, printsTheWholePictureInSmallerLetters) {
    printPicture(arrangement_, core_.ui());
    EXPECT_EQ(core_.pictures.printed, "15 people, grouped by their e-mails");
    EXPECT_EQ(core_.pictures.drawn.smallestText, 8);
}

TEST(PictureFiles, haveLargerLettersInALargePicture) {
    const Arrangement people = arrangeCommunity(chainOfCliques(3, 5));
    const auto sizeOfLetters = [&people](CanvasSize size) {
        return pictureScene(people, size, 12, estimatedWidth).texts.back().size;
    };
    EXPECT_EQ(sizeOfLetters({300, 300}), 12);
    EXPECT_EQ(sizeOfLetters({4800, 3600}), 24);
}

}  // namespace
}  // namespace pelk
