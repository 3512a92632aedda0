#include "platform/windows/controls/images.h"

#include "platform/readable_color.h"
#include "platform/windows/controls/colors.h"
#include "platform/windows/controls/icon_canvas.h"

namespace pelk {

namespace {

constexpr COLORREF kPerson = RGB(62, 104, 158);
constexpr COLORREF kPersonBehind = RGB(134, 168, 208);

/// Draws a head and shoulders whose lower edge is at `bottom`, surrounded by a gap.
void drawPerson(IconCanvas& canvas, double middle, double bottom, double width, double gap = 0) {
    const double half = width / 2;
    const double radius = width * 0.26;
    const double neck = bottom - width * 0.52;
    const double top = neck - gap;
    const double left = middle - half - gap;
    const double right = middle + half + gap;
    canvas.curves({{left, bottom},
                   {left, neck + half * 0.2 - gap},
                   {middle - half * 0.6, top},
                   {middle, top},
                   {middle + half * 0.6, top},
                   {right, neck + half * 0.2 - gap},
                   {right, bottom}});
    canvas.circle({middle, neck - radius * 1.15}, radius + gap);
}

void drawContact(IconCanvas& canvas) {
    canvas.setColor(kPerson);
    drawPerson(canvas, 8, 15, 12);
}

void drawMany(IconCanvas& canvas) {
    canvas.setColor(kPersonBehind);
    drawPerson(canvas, 11.2, 12.5, 9);
    canvas.setEraser();
    drawPerson(canvas, 5.5, 15, 10, 1);
    canvas.setColor(kPerson);
    drawPerson(canvas, 5.5, 15, 10);
}

/// Returns the colour as it can be seen in a tree.
COLORREF visibleColor(COLORREF color) {
    return toNative(readableColor(fromNative(color), fromNative(GetSysColor(COLOR_WINDOW))));
}

/// Draws three bars that rise to the right, the first `filled` of them solid.
void drawBars(IconCanvas& canvas, int filled, COLORREF color) {
    for (int bar = 0; bar < 3; ++bar) {
        const double left = 1 + 5 * bar;
        const double top = 11 - 4 * bar;
        canvas.setColor(visibleColor(bar < filled ? color : RGB(140, 140, 140)));
        canvas.box({left, top}, {left + 4, 15});
        if (bar < filled)
            continue;
        canvas.setEraser();
        canvas.box({left + 1, top + 1}, {left + 3, 14});
    }
}

void drawStrong(IconCanvas& canvas) {
    drawBars(canvas, 3, RGB(214, 32, 32));
}
void drawMedium(IconCanvas& canvas) {
    drawBars(canvas, 2, RGB(40, 72, 214));
}
void drawWeak(IconCanvas& canvas) {
    drawBars(canvas, 1, RGB(110, 110, 110));
}
void drawNothing(IconCanvas&) {}

/// In the order of `TreeImage`.
constexpr void (*kTreeDrawings[])(IconCanvas&) = {drawNothing, drawContact, drawMany,
                                                  drawStrong,  drawMedium,  drawWeak};

void drawProgram(IconCanvas& canvas) {
    canvas.setColor(kPerson);
    canvas.roundedBox({0, 0}, {16, 16}, 3);
    canvas.setColor(kPersonBehind);
    canvas.line({4.5, 11.5}, {11.5, 4.5}, 1.6);
    canvas.setColor(RGB(255, 255, 255));
    canvas.circle({4.5, 11.5}, 2.6);
    canvas.circle({11.5, 4.5}, 2.6);
}

HICON drawn(void (*drawing)(IconCanvas&), int size) {
    IconCanvas canvas(size);
    drawing(canvas);
    return canvas.icon();
}

}  // namespace

HIMAGELIST createTreeImageList(int size) {
    const HIMAGELIST list = ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, 6, 0);
    for (const auto drawing : kTreeDrawings) {
        const HICON icon = drawn(drawing, size);
        ImageList_ReplaceIcon(list, -1, icon);
        DestroyIcon(icon);
    }
    return list;
}

HICON createTreeIcon(TreeImage image, int size) {
    return drawn(kTreeDrawings[static_cast<std::size_t>(image)], size);
}

HICON createProgramIcon(int size) {
    return drawn(drawProgram, size);
}

}  // namespace pelk
