#include "apps/cli/history_commands.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "apps/cli/command_run.h"
#include "apps/cli/correspondent_commands.h"
#include "apps/cli/listing.h"
#include "apps/cli/terminal_text.h"
#include "views/deletion_text.h"
#include "views/lost_sight.h"
#include "views/over_time.h"

namespace pelk {
namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

/// An empty history explains an empty list.
void tellIfEmpty(const History& history) {
    if (history.empty())
        tell("The history begins with the next scan.");
}

QJsonObject toJson(const Exchange& exchange, const std::vector<PeriodCount>& periods) {
    QJsonArray array;
    for (const PeriodCount& count : periods)
        array.append(QJsonObject{{"period", text(count.label)},
                                 {"sent", static_cast<qint64>(count.sent)},
                                 {"received", static_cast<qint64>(count.received)}});
    return {{"first", text(dayText(exchange.first))},
            {"last", text(dayText(exchange.last))},
            {"sent", static_cast<qint64>(exchange.sent())},
            {"received", static_cast<qint64>(exchange.received())},
            {"periods", array}};
}

void printExchange(std::ostream& out, const Exchange& exchange,
                   const std::vector<PeriodCount>& periods) {
    constexpr int kWidth = 8;
    if (!exchange.empty())
        Line(out) << "first: " << dayText(exchange.first) << ", last: " << dayText(exchange.last);
    const auto print = [&out](const std::string& label, const auto& sent, const auto& received) {
        Line(out) << std::left << std::setw(kWidth) << label << std::right << std::setw(kWidth)
                  << sent << "  " << std::setw(kWidth) << received;
    };
    print("", "sent", "received");
    for (const PeriodCount& count : periods)
        print(count.label, count.sent, count.received);
    print("total", exchange.sent(), exchange.received());
}

void printLost(std::ostream& out, const Database& database, const LostSight& lost, bool json) {
    QJsonArray array;
    for (const LostContact& contact : lost.contacts) {
        const std::string name = nameForUser(database, contact.id);
        if (json)
            array.append(QJsonObject{{"class", nameOf(contact.strength)},
                                     {"weight", static_cast<qint64>(contact.weight)},
                                     {"id", contact.id},
                                     {"last", text(dayText(contact.last))},
                                     {"name", text(name)}});
        else
            Line(out) << strengthColumns(contact.strength, contact.weight) << std::setw(7)
                      << contact.id << "  " << dayText(contact.last) << "  " << name;
    }
    if (json)
        print(out, QJsonDocument(array));
}

/// Returns the contacts that the command is about.
std::vector<int> peopleOf(CommandRun& run) {
    if (!run.arguments().of.empty())
        return {run.findContact(run.arguments().of)};
    std::vector<int> own = ownersOf(run.database(), run.historyFile().ownAddresses());
    if (own.empty() && !run.history().empty())
        throw Error("Your own addresses are not known yet. The next scan finds them.");
    return own;
}

}  // namespace

void historyCommand(CommandRun& run) {
    const std::vector<int> ids = run.findContacts(run.arguments().operands);
    const History& history = run.history();
    const Exchange exchange = ids.size() == 2 ? exchangeOf(run.database(), history, ids[0], ids[1])
                                              : exchangeOf(run.database(), history, ids[0]);
    const std::vector<PeriodCount> periods =
        periodsOf(exchange, run.arguments().byMonth ? Period::Monthly : Period::Yearly);
    if (run.arguments().json)
        print(std::cout, QJsonDocument(toJson(exchange, periods)));
    else
        printExchange(std::cout, exchange, periods);
    tellIfEmpty(history);
}

void coldCommand(CommandRun& run) {
    const std::vector<int> people = peopleOf(run);
    const History& history = run.history();
    const LostSight lost =
        lostSightOf(run.database(), history, people, dayOf(run.platform().clock.now()),
                    run.arguments().months, leftOutContacts(run));
    printLost(std::cout, run.database(), lost, run.arguments().json);
    tellIfEmpty(history);
    if (lost.undated > 0 && !history.empty())
        tell("The history has no e-mail with " + std::to_string(lost.undated) + " more.");
}

}  // namespace pelk
