#include "apps/cli/duplicates_command.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <iostream>
#include <string>

#include "apps/cli/listing.h"
#include "apps/cli/terminal_text.h"
#include "maintenance/duplicates.h"
#include "views/contact_text.h"

namespace pelk {
namespace {

QJsonObject toJson(int id, const std::string& description) {
    return {{"id", id}, {"description", QString::fromStdString(description)}};
}

}  // namespace

void duplicatesCommand(CommandRun& run) {
    const Database& database = run.database();
    QJsonArray array;
    for (const auto& [id, otherId, reason, text] : findDuplicates(database, run.language())) {
        const std::string one = describe(*database.contact(id));
        const std::string other = describe(*database.contact(otherId));
        if (run.arguments().json)
            array.append(
                QJsonObject{{"contacts", QJsonArray{toJson(id, one), toJson(otherId, other)}},
                            {"reason", QString::fromStdString(text)}});
        else
            Line(std::cout) << id << ' ' << one << " - " << otherId << ' ' << other << ": " << text;
    }
    if (run.arguments().json)
        print(std::cout, QJsonDocument(array));
}

}  // namespace pelk
