#pragma once
// Label, picture, buttons and progress bar.

#include <QButtonGroup>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

#include "platform/desktop/qt/control.h"
#include "platform/dialogs.h"

namespace pelk {

/// Plain text that wraps. A single line is centred vertically.
class TextWidget : public QLabel {
 public:
    explicit TextWidget(QWidget* parent);
    void align();

 protected:
    void resizeEvent(QResizeEvent* event) override;
};

class QtLabel : public QtControl<Label, TextWidget> {
 public:
    using QtControl::QtControl;
    void setText(const std::string& text) override;
    void repaint() override { widget_.repaint(); }
};

/// An image of the tree, as large as fits.
class PictureWidget : public QLabel {
 public:
    PictureWidget(QWidget* parent) : QLabel(parent) {}
    void setImage(TreeImage image) { image_ = image; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    TreeImage image_ = TreeImage::None;
};

class QtPicture : public QtControl<Picture, PictureWidget> {
 public:
    QtPicture(QWidget& parent, const TwipScale& scale, TreeImage image);
};

class QtButton : public QtControl<Button, QPushButton> {
 public:
    /// `dialogs` shows the handler's exceptions.
    QtButton(QWidget& parent, const TwipScale& scale, const std::string& text, Dialogs& dialogs);
};

class QtOptionButton : public QtControl<OptionButton, QRadioButton> {
 public:
    /// At most one button of `group` is checked. `dialogs` shows the handler's exceptions.
    QtOptionButton(QWidget& parent, const TwipScale& scale, const std::string& text,
                   QButtonGroup& group, Dialogs& dialogs);
    void setChecked(bool checked) override;
};

/// Qt's styles draw a range of a single value as an empty bar, or as a wait of unknown length.
class BarWidget : public QProgressBar {
 public:
    using QProgressBar::QProgressBar;

 protected:
    void initStyleOption(QStyleOptionProgressBar* option) const override;
};

class QtProgressBar : public QtControl<ProgressBar, BarWidget> {
 public:
    QtProgressBar(QWidget& parent, const TwipScale& scale);
    void setRange(int minimum, int maximum) override;
    void setValue(int value) override;
};

}  // namespace pelk
