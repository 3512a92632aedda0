#include "platform/desktop/qt/settings_file.h"

#include <QFile>
#include <QSettings>

namespace pelk {

std::optional<std::string> SettingsFile::read(const std::string& key) const {
    if (file_.empty())
        return std::nullopt;
    const QSettings settings(QFile::decodeName(file_.c_str()), QSettings::IniFormat);
    const QVariant text = settings.value(QString::fromStdString(key));
    return text.isValid() ? std::optional(text.toString().toStdString()) : std::nullopt;
}

/// Unchanged text is not written, so that a form that is only looked at creates no file.
void SettingsFile::write(const std::string& key, const std::string& text) {
    if (file_.empty() || read(key) == text)
        return;
    QSettings settings(QFile::decodeName(file_.c_str()), QSettings::IniFormat);
    settings.setValue(QString::fromStdString(key), QString::fromStdString(text));
    settings.sync();
}

}  // namespace pelk
