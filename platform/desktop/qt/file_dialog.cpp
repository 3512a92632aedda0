#include "platform/desktop/qt/file_dialog.h"

#include <QRegularExpression>
#include <QStringList>

namespace pelk {
namespace {

/// Names and patterns in turn as Qt wants them: each name followed by its pattern in brackets,
/// which some names show already.
QStringList nameFilters(const QStringList& namesAndPatterns) {
    static const QRegularExpression kShownPattern("\\s*\\([^()]*\\)$");
    QStringList filters;
    for (qsizetype at = 0; at + 1 < namesAndPatterns.size(); at += 2) {
        QString name = namesAndPatterns[at];
        // Here a file need not have a dot in its name.
        const QString pattern = namesAndPatterns[at + 1] == "*.*" ? "*" : namesAndPatterns[at + 1];
        filters << name.remove(kShownPattern) + " (" + pattern + ")";
    }
    return filters;
}

}  // namespace

std::string chooseFile(QWidget* owner, QFileDialog::AcceptMode mode, const std::string& title,
                       const std::string& filter) {
    const QStringList namesAndPatterns = QString::fromStdString(filter).split('|');
    QFileDialog box(owner, QString::fromStdString(title));
    box.setAcceptMode(mode);
    box.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                    : QFileDialog::AnyFile);
    box.setNameFilters(nameFilters(namesAndPatterns));
    // The extension of the first pattern, "*.db".
    box.setDefaultSuffix(namesAndPatterns.value(1).section('.', -1));
    return box.exec() == QDialog::Accepted ? box.selectedFiles().value(0).toStdString()
                                           : std::string();
}

}  // namespace pelk
