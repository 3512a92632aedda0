#include "platform/desktop/qt/access_key_marks.h"

#include <QAbstractButton>
#include <QAction>

#include "platform/access_keys.h"

namespace pelk {
namespace {

template <typename Item>
void mark(const QList<Item*>& items) {
    std::vector<std::string> captions;
    for (const Item* item : items)
        captions.push_back(item->text().toStdString());
    captions = withAccessKeys(std::move(captions));
    for (qsizetype at = 0; at < items.size(); ++at)
        items[at]->setText(QString::fromStdString(captions[static_cast<std::size_t>(at)]));
}

}  // namespace

void markAccessKeys(const QWidget& window) {
    mark(window.findChildren<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly));
}

void markAccessKeys(const QMenu& menu) {
    mark(menu.actions());
}

}  // namespace pelk
