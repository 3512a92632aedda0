#pragma once
// What all controls of the toolkit share: a Qt widget with bounds in twips.
//
// The strips of a window are its contents margins, so its contents rectangle is the inner area.

#include <QWidget>

#include "platform/desktop/qt/twip_scale.h"

namespace pelk {

/// Gives adapters the widget that shows a control or window.
class NativeWidget {
 public:
    virtual ~NativeWidget() = default;
    virtual QWidget& nativeWidget() = 0;
};

/// Implements the control `Interface` with a `Widget`.
template <class Interface, class Widget>
class QtControl : public Interface, public NativeWidget {
 public:
    /// The control appears in `parent`, which must outlive it. Further arguments are passed to
    /// `Interface`.
    template <class... Arguments>
    QtControl(QWidget& parent, const TwipScale& scale, Arguments&&... arguments)
        : Interface(std::forward<Arguments>(arguments)...), widget_(&parent), scale_(scale) {}

    Rect bounds() const override {
        return scale_.twips(widget_.geometry().translated(-innerTopLeft()));
    }
    void setBounds(const Rect& bounds) override {
        widget_.setGeometry(scale_.pixels(bounds).translated(innerTopLeft()));
    }
    void setEnabled(bool enabled) override { widget_.setEnabled(enabled); }
    void focus() override { widget_.setFocus(); }
    void keepArrowPointer() override { widget_.setCursor(Qt::ArrowCursor); }
    QWidget& nativeWidget() override { return widget_; }

 protected:
    Widget widget_;

 private:
    QPoint innerTopLeft() const { return widget_.parentWidget()->contentsRect().topLeft(); }

    TwipScale scale_;
};

}  // namespace pelk
