#include "platform/desktop/qt/accessible_names.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>

namespace pelk {

namespace {

QString nameWithoutLabel(const QWidget& control, const QWidget& window) {
    const auto* const box = qobject_cast<const QLineEdit*>(&control);
    return box != nullptr && !box->placeholderText().isEmpty() ? box->placeholderText()
                                                               : window.windowTitle();
}

}  // namespace

void nameControls(QWidget& window) {
    QString label;
    for (QWidget* control : window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (const auto* const text = qobject_cast<const QLabel*>(control)) {
            if (!text->text().isEmpty())
                label = text->text();
        } else if (qobject_cast<const QAbstractButton*>(control) != nullptr) {
            label.clear();
        } else if (!control->isWindow()) {
            control->setAccessibleName(label.isEmpty() ? nameWithoutLabel(*control, window)
                                                       : label);
        }
    }
}

}  // namespace pelk
