#include "apps/cli/correspondent_commands.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cstdint>
#include <iomanip>
#include <iostream>
#include <tuple>

#include "apps/cli/listing.h"
#include "apps/cli/terminal_text.h"
#include "history/correspondent_kind.h"
#include "views/relation_totals.h"

namespace pelk {
namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

void printOwn(const std::vector<OwnAddress>& all, bool json) {
    QJsonArray array;
    for (const OwnAddress& own : all) {
        if (json)
            array.append(QJsonObject{{"address", text(own.address)}, {"reason", text(own.reason)}});
        else
            Line(std::cout) << own.address << "  (" << own.reason << ")";
    }
    if (json)
        print(std::cout, QJsonDocument(array));
    else if (all.empty())
        tell("No address is known to be yours. A scan finds it, or name it: pelk me ADDRESS.");
}

/// Returns the addresses on the command line in lower case; none for the word "auto".
std::vector<std::string> givenAddresses(CommandRun& run) {
    std::vector<std::string> addresses;
    const std::vector<std::string>& words = run.arguments().operands;
    if (words == std::vector<std::string>{"auto"})
        return addresses;
    for (const std::string& word : words) {
        const std::size_t at = word.find('@');
        if (at == 0 || at == std::string::npos || at + 1 == word.size())
            throw UsageError(word + " is not an e-mail address");
        addresses.push_back(run.language().lowerCase(word));
        if (run.database().ownerOf(addresses.back()) == 0)
            tell("No contact has the address " + addresses.back() + ".");
    }
    return addresses;
}

struct Correspondence {
    std::string address;
    Correspondent is;
    std::uint64_t mails = 0;
};

/// Returns the number of e-mails that an address has sent or received.
std::uint64_t mailsOf(const std::string& address, const History& history,
                      const AddressRecord& record) {
    std::uint64_t mails = record.sent;
    history.forEachPartner(address, [&mails](const std::string&, const Exchange& exchange) {
        mails += exchange.received();
    });
    return mails;
}

std::vector<Correspondence> listsAndRobots(const Database& database, const History& history) {
    const ListHosts listHosts = listHostsIn(history);
    std::vector<Correspondence> found;
    database.forEachContact([&](const Contact& contact) {
        for (const std::string& address : contact.addresses) {
            const AddressRecord* const known = history.findRecord(address);
            const AddressRecord record = known == nullptr ? AddressRecord() : *known;
            Correspondent is = kindOfAddress(address, record, listHosts);
            if (is.kind != CorrespondentKind::Person)
                found.push_back({address, std::move(is), mailsOf(address, history, record)});
        }
    });
    std::sort(found.begin(), found.end(), [](const Correspondence& a, const Correspondence& b) {
        return std::tie(b.mails, a.address) < std::tie(a.mails, b.address);
    });
    return found;
}

}  // namespace

void meCommand(CommandRun& run) {
    if (!run.arguments().operands.empty()) {
        run.lock();
        run.historyFile().setOwnAddresses(givenAddresses(run));
    }
    run.history();  // tells of a damaged file
    printOwn(run.historyFile().explainedOwnAddresses(), run.arguments().json);
}

void listsCommand(CommandRun& run) {
    const bool json = run.arguments().json;
    QJsonArray array;
    for (const Correspondence& one : listsAndRobots(run.database(), run.history())) {
        if (json)
            array.append(QJsonObject{{"address", text(one.address)},
                                     {"kind", nameOf(one.is.kind)},
                                     {"reason", text(one.is.reason)},
                                     {"mails", static_cast<qint64>(one.mails)}});
        else
            Line(std::cout) << std::setw(6) << one.mails << "  " << std::left << std::setw(5)
                            << nameOf(one.is.kind) << "  " << one.address << "  (" << one.is.reason
                            << ")";
    }
    if (json)
        print(std::cout, QJsonDocument(array));
}

HiddenContacts::Ids leftOutContacts(CommandRun& run) {
    if (!run.arguments().withoutLists)
        return {};
    const History& history = run.history();
    HiddenContacts hidden([&history]() -> const History& { return history; });
    hidden.hide(true);
    HiddenContacts::Ids ids = hidden.of(run.database());
    if (!ids.empty())
        tell(counted(static_cast<std::int64_t>(ids.size()), "contact") + " left out.");
    return ids;
}

}  // namespace pelk
