// Measures the picture of a large community in a window: the first one, and each frame while the
// user moves it and zooms. Usage: picture_speed.

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>

#include "bench/mail_graph.h"
#include "bench/measure.h"
#include "bench/settled.h"
#include "bench/silent_dialogs.h"
#include "map/picture_view.h"
#include "platform/desktop/locale_language.h"
#include "platform/desktop/qt/control.h"
#include "platform/desktop/qt/toolkit.h"
#include "platform/movement.h"

namespace pelk {
namespace {

constexpr int kPeople = 3000;
constexpr int kFrames = 60;
constexpr Size kInner{18000, 13500};
/// In milliseconds.
constexpr double kFirstLimit = 1000;

class PictureSpeed {
 public:
    PictureSpeed() {
        window_->setInnerSize(kInner);
        window_->show();
        settle();
    }

    void measureAll() {
        timeFirst();
        settle();
        timeFrames("Moving that picture, the slowest of 60 frames",
                   [this](int frame) { drag(frame); });
        timeRest();
        timeFrames("Zooming in", [this](int) { turnWheel(1); });
        timeFrames("Moving it there", [this](int frame) { drag(frame); });
        timeFrames("Zooming out", [this](int) { turnWheel(-1); });
    }

 private:
    void timeFirst() {
        const double time = millisecondsOf([this] {
            view_.show(arrangeCommunity(makeGraph(*database_, {})));
            settle();
        });
        print({"The first picture of 3,000 people", "warm", time, "at once", kFirstLimit, "ms", 1});
    }

    /// Once the user has stopped, the area paints anew.
    void timeRest() {
        const double time = millisecondsOf([this] {
            area_.redraw();
            settle();
        });
        print({"Painting it when that rests", "warm", time, "at once", kRestMilliseconds, "ms", 0});
    }

    void timeFrames(const char* question, const std::function<void(int frame)>& act) {
        std::vector<double> times;
        for (int frame = 0; frame < kFrames; ++frame)
            times.push_back(millisecondsOf([&] {
                act(frame);
                settle();
            }));
        print({question, "warm", *std::max_element(times.begin(), times.end()),
               "a frame of the screen", kFrameMilliseconds, "ms", 1});
    }

    void drag(int frame) {
        const QPointF place(400 + 3 * frame, 400 + frame);
        if (frame == 0)
            send(QEvent::MouseButtonPress, place, Qt::LeftButton);
        send(QEvent::MouseMove, place, Qt::NoButton);
        if (frame == kFrames - 1)
            send(QEvent::MouseButtonRelease, place, Qt::LeftButton);
    }
    void send(QEvent::Type type, const QPointF& place, Qt::MouseButton button) {
        QMouseEvent event(type, place, widget_.mapToGlobal(place), button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        QApplication::sendEvent(&widget_, &event);
    }
    void turnWheel(int notches) {
        const QPointF place = QRectF(widget_.rect()).center();
        QWheelEvent event(place, widget_.mapToGlobal(place), {}, {0, notches * 12}, Qt::NoButton,
                          {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget_, &event);
    }

    LocaleLanguage language_{"en_US"};
    SilentDialogs dialogs_;
    QtToolkit toolkit_{dialogs_, language_};
    const std::unique_ptr<Window> window_ = toolkit_.createWindow();
    DrawingArea& area_ = window_->addDrawingArea({0, 0, kInner.width, kInner.height});
    QWidget& widget_ = dynamic_cast<NativeWidget&>(area_).nativeWidget();
    PictureView view_{area_};
    const std::unique_ptr<Database> database_ =
        makeDatabase(makeMailGraph(kPeople, Weights::Mail), kPeople);
};

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication application(argc, argv);
    pelk::PictureSpeed().measureAll();
}
