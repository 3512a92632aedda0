#include "apps/desktop/example_mail.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include "platform/error.h"

namespace pelk {

std::string exampleMail() {
    const QString program = QCoreApplication::applicationDirPath();
    for (const char* const place : {"/../share/pelk/examples/mail", "/../../../examples/mail"})
        if (const QFileInfo mail(program + place); mail.isDir())
            return QFile::encodeName(mail.canonicalFilePath()).toStdString();
    return {};
}

void showExampleMail(const std::string& mail, const std::string& dataFolder) {
    const QString program = QCoreApplication::applicationFilePath();
    if (!QProcess::startDetached(program, {"--data", QFile::decodeName(dataFolder.c_str()), "--",
                                           QFile::decodeName(mail.c_str())}))
        throw Error("The example cannot be shown, as " + program.toStdString() +
                    " does not start. It is in " + mail + ".");
}

}  // namespace pelk
