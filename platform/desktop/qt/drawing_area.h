#pragma once
// The drawing area on Qt.

#include <QElapsedTimer>
#include <QTimer>
#include <QTransform>
#include <exception>

#include "platform/desktop/qt/control.h"
#include "platform/desktop/qt/image_canvas.h"
#include "platform/dialogs.h"

namespace pelk {

/// Paints with the handler of an area, and reports what the user does to its other handlers.
class DrawingWidget : public QWidget {
 public:
    explicit DrawingWidget(QWidget* parent);
    /// Called once, before any event. Both outlive the widget.
    void report(DrawingArea& area, Dialogs& dialogs);
    /// Returns how many pixels a unit of the area has.
    double unit() const;
    /// Shows a text beside the pointer.
    void showTip(const std::string& text);
    void redraw();
    /// See `DrawingArea::redrawMoved`.
    void redrawMoved(double scale, CanvasPoint corner);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

 private:
    CanvasPoint pointOf(const QPointF& pixels) const;
    template <class... Values>
    void tell(const std::function<void(Values...)>& handler, const Values&... values);
    void tellRelease(const QPointF& place);
    void paintPicture();
    void showPicture(QPainter& painter) const;
    void showFault(const std::exception_ptr& fault);
    void drawFocus(QPainter& painter);

    DrawingArea* area_ = nullptr;
    Dialogs* dialogs_ = nullptr;
    LabelImages labels_;
    QPointF pointer_;
    bool pressed_ = false;
    bool showsFocus_ = false;
    /// What was painted last, whether it must be painted again, and how long that took.
    QImage picture_;
    bool isOutdated_ = true;
    qint64 milliseconds_ = 0;
    /// How a movement shows the picture, until it rests.
    QTransform moved_;
    QTimer rest_;
};

class QtDrawingArea : public QtControl<DrawingArea, DrawingWidget> {
 public:
    /// `dialogs` shows the handlers' exceptions.
    QtDrawingArea(QWidget& parent, const TwipScale& scale, Dialogs& dialogs);
    void redraw() override { widget_.redraw(); }
    void redrawMoved(double scale, CanvasPoint corner) override {
        widget_.redrawMoved(scale, corner);
    }
    CanvasSize size() const override;
    double widthOf(std::string_view text, double fontSize) const override;
    Color textColor() const override;
    Color backgroundColor() const override;
    void setDescription(const std::string& description) override;
    void showTip(const std::string& text) override { widget_.showTip(text); }
    void setHandPointer(bool hand) override;
    void animate(double seconds, std::function<void(double share)> frame) override;

 private:
    bool wantsMotion() const;
    void showFrame();

    Dialogs& dialogs_;
    PictureTextWidth textWidth_;
    std::function<void(double share)> frame_;
    double seconds_ = 0;
    QElapsedTimer since_;
    QTimer frames_;
};

}  // namespace pelk
