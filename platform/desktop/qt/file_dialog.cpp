#include "platform/desktop/qt/file_dialog.h"

#include <QRegularExpression>
#include <QStringList>

namespace pelk {
namespace {

/// Converts alternating names and patterns to Qt's filters: each name followed by its pattern in
/// brackets, unless the name already shows it.
QStringList nameFilters(const QStringList& namesAndPatterns) {
    static const QRegularExpression kShownPattern("\\s*\\([^()]*\\)$");
    QStringList filters;
    for (qsizetype at = 0; at + 1 < namesAndPatterns.size(); at += 2) {
        QString name = namesAndPatterns[at];
        // On Linux, file names need no dot.
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
    box.setDefaultSuffix(namesAndPatterns.value(1).section('.', -1));
    // A name without an ending gets that of the chosen kind.
    QObject::connect(&box, &QFileDialog::filterSelected, [&box](const QString& chosen) {
        const QString suffix = chosen.section('.', -1).chopped(1);
        if (chosen.contains("(*."))
            box.setDefaultSuffix(suffix);
    });
    return box.exec() == QDialog::Accepted ? box.selectedFiles().value(0).toStdString()
                                           : std::string();
}

}  // namespace pelk
