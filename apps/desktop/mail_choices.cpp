#include "apps/desktop/mail_choices.h"

#include <QFile>
#include <QSettings>
#include <algorithm>

#include "platform/error.h"

namespace pelk {
namespace {

constexpr std::size_t kMostChoices = 8;
constexpr const char* kList = "recent";
constexpr const char* kPaths = "mail";

/// Paths are bytes, which the file keeps whatever they are.
QStringList toList(const MailChoice& choice) {
    QStringList list;
    for (const std::string& path : choice)
        list.append(QString::fromLatin1(QByteArray::fromStdString(path).toPercentEncoding("/ ")));
    return list;
}

MailChoice toChoice(const QStringList& list) {
    MailChoice choice;
    for (const QString& path : list)
        choice.push_back(QByteArray::fromPercentEncoding(path.toUtf8()).toStdString());
    return choice;
}

}  // namespace

std::vector<MailChoice> MailChoices::recent() const {
    std::vector<MailChoice> choices;
    if (file_.empty())
        return choices;
    QSettings settings(QFile::decodeName(file_.c_str()), QSettings::IniFormat);
    const int count = std::min(settings.beginReadArray(kList), static_cast<int>(kMostChoices));
    for (int i = 0; i < count; ++i) {
        settings.setArrayIndex(i);
        MailChoice choice = toChoice(settings.value(kPaths).toStringList());
        if (!choice.empty())
            choices.push_back(std::move(choice));
    }
    return choices;
}

void MailChoices::remember(const MailChoice& choice) {
    if (file_.empty())
        return;
    std::vector<MailChoice> choices = recent();
    std::erase(choices, choice);
    choices.insert(choices.begin(), choice);
    choices.resize(std::min(choices.size(), kMostChoices));
    const QString name = QFile::decodeName(file_.c_str());
    QSettings settings(name, QSettings::IniFormat);
    settings.beginWriteArray(kList, static_cast<int>(choices.size()));
    for (std::size_t i = 0; i < choices.size(); ++i) {
        settings.setArrayIndex(static_cast<int>(i));
        settings.setValue(kPaths, toList(choices[i]));
    }
    settings.endArray();
    settings.sync();
    if (settings.status() != QSettings::NoError)
        throw Error("Pelk cannot remember which mail you chose: " + file_ + " cannot be written.");
    // Only the user may read where their mail is.
    QFile::setPermissions(name, QFile::ReadOwner | QFile::WriteOwner);
}

}  // namespace pelk
