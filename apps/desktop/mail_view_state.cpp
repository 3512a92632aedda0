#include "apps/desktop/mail_view_state.h"

#include <QFile>
#include <QSettings>

#include "platform/error.h"

namespace pelk {
namespace {

constexpr const char* kWindow = "view/window";
constexpr const char* kColumns = "view/columns";
constexpr const char* kWidths = "view/widths";
constexpr const char* kFolders = "view/folders";

}  // namespace

MailViewState readViewState(const std::string& file) {
    if (file.empty())
        return {};
    const QSettings settings(QFile::decodeName(file.c_str()), QSettings::IniFormat);
    return {settings.value(kWindow).toByteArray(), settings.value(kColumns).toByteArray(),
            settings.value(kWidths).toByteArray(), settings.value(kFolders, true).toBool()};
}

void writeViewState(const std::string& file, const MailViewState& state) {
    if (file.empty())
        return;
    const QString name = QFile::decodeName(file.c_str());
    QSettings settings(name, QSettings::IniFormat);
    settings.setValue(kWindow, state.window);
    settings.setValue(kColumns, state.columns);
    settings.setValue(kWidths, state.widths);
    settings.setValue(kFolders, state.showsFolders);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        throw Error("Pelk cannot remember how the mail window looks: " + file +
                    " cannot be written.");
    // The file may also say where the user's mail is.
    QFile::setPermissions(name, QFile::ReadOwner | QFile::WriteOwner);
}

}  // namespace pelk
