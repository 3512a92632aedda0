#pragma once
// What all controls of the toolkit share: a widget of Qt, placed in twips.

#include <QWidget>

#include "platform/desktop/qt/twip_scale.h"

namespace pelk {

/// The way from a control or a window of the interface to the widget that shows it.
class NativeWidget {
 public:
    virtual ~NativeWidget() = default;
    virtual QWidget& nativeWidget() = 0;
};

/// A control of the kind `Interface`, shown by a `Widget`.
template <class Interface, class Widget>
class QtControl : public Interface, public NativeWidget {
 public:
    /// The control appears in `parent`, which must outlive it. Further arguments are the
    /// interface's own.
    template <class... Arguments>
    QtControl(QWidget& parent, const TwipScale& scale, Arguments&&... arguments)
        : Interface(std::forward<Arguments>(arguments)...), widget_(&parent), scale_(scale) {}

    Rect bounds() const override { return scale_.twips(widget_.geometry()); }
    void setBounds(const Rect& bounds) override { widget_.setGeometry(scale_.pixels(bounds)); }
    void setEnabled(bool enabled) override { widget_.setEnabled(enabled); }
    void keepArrowPointer() override { widget_.setCursor(Qt::ArrowCursor); }
    QWidget& nativeWidget() override { return widget_; }

 protected:
    Widget widget_;

 private:
    TwipScale scale_;
};

}  // namespace pelk
