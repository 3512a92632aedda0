#include "apps/desktop/keyring.h"

#include <qt6keychain/keychain.h>

#include <memory>

#include "apps/desktop/waiting_box.h"
#include "platform/error.h"

namespace pelk {
namespace {

/// How a job has ended. It outlives the wait, which the user may cancel.
struct JobEnd {
    bool isDone = false;
    QKeychain::Error error = QKeychain::NoError;
    QString fault;
    std::string password;
};

/// What QtKeychain itself says about a missing keyring is often no more than "Unknown error".
std::string faultText(const JobEnd& end) {
    const bool isMissing =
        end.error == QKeychain::NoBackendAvailable || end.error == QKeychain::OtherError;
    return std::string("The system's keyring cannot be used") +
           (isMissing ? "; perhaps none is running" : "") +
           (end.fault.isEmpty() ? "" : " (" + end.fault.toStdString() + ")") + ".";
}

/// Runs a job, which deletes itself.
template <typename Job, typename Take>
JobEnd run(Job& job, const std::string& key, const Take& take) {
    const auto end = std::make_shared<JobEnd>();
    job.setKey(QString::fromStdString(key));
    QObject::connect(&job, &QKeychain::Job::finished, [end, take, &job] {
        end->error = job.error();
        end->fault = job.errorString();
        take(job, *end);
        end->isDone = true;
    });
    job.start();
    if (!waitWithBox(QStringLiteral("Waiting for the system's keyring..."),
                     [end] { return end->isDone; }))
        throw Error("The system's keyring was not used: you cancelled it.");
    if (end->error != QKeychain::NoError && end->error != QKeychain::EntryNotFound)
        throw Error(faultText(*end));
    return std::move(*end);
}

const QString& service() {
    static const QString name = QStringLiteral("pelk");
    return name;
}

}  // namespace

std::optional<std::string> SystemKeyring::find(const std::string& key) {
    auto* const job = new QKeychain::ReadPasswordJob(service());
    JobEnd end = run(*job, key, [](const QKeychain::ReadPasswordJob& done, JobEnd& result) {
        result.password = done.textData().toStdString();
    });
    if (end.error == QKeychain::EntryNotFound)
        return std::nullopt;
    return std::move(end.password);
}

void SystemKeyring::keep(const std::string& key, const std::string& password) {
    auto* const job = new QKeychain::WritePasswordJob(service());
    job->setTextData(QString::fromStdString(password));
    run(*job, key, [](const QKeychain::WritePasswordJob&, JobEnd&) {});
}

}  // namespace pelk
