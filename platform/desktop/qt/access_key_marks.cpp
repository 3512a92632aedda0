#include "platform/desktop/qt/access_key_marks.h"

#include <QAbstractButton>

#include "platform/access_keys.h"

namespace pelk {

void markAccessKeys(QWidget& window) {
    const auto buttons =
        window.findChildren<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
    std::vector<std::string> captions;
    for (const QAbstractButton* button : buttons)
        captions.push_back(button->text().toStdString());
    captions = withAccessKeys(std::move(captions));
    for (qsizetype at = 0; at < buttons.size(); ++at)
        buttons[at]->setText(QString::fromStdString(captions[static_cast<std::size_t>(at)]));
}

}  // namespace pelk
