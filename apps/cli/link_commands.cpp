#include "apps/cli/link_commands.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <iomanip>
#include <optional>
#include <vector>

#include "apps/cli/interrupt.h"
#include "apps/cli/listing.h"
#include "apps/cli/terminal_line.h"
#include "apps/cli/terminal_text.h"
#include "links/best_chains.h"
#include "links/domain_search.h"
#include "links/link_search.h"
#include "views/contact_text.h"
#include "views/strength.h"

namespace pelk {
namespace {

/// The width of the class and weight columns, left blank for the first contact.
constexpr std::size_t kStrengthWidth = 13;

/// A contact of a chain, and its relation to the previous one.
struct ChainLink {
    int id = 0;
    std::string description;
    std::int64_t weight = 0;
    Strength strength = Strength::Weak;
};

std::string descriptionOf(const Database& database, int id) {
    if (const std::optional<Contact> contact = database.contact(id))
        return describe(*contact);
    throw Error("The database is damaged: there is no contact " + std::to_string(id) + ".");
}

std::vector<ChainLink> readChain(const Database& database, const std::vector<int>& ids) {
    const std::int64_t strongest = database.strongestWeight();
    const Thresholds thresholds = database.thresholds();
    std::vector<ChainLink> links;
    for (const int id : ids) {
        ChainLink link{id, descriptionOf(database, id)};
        if (!links.empty()) {
            const std::optional<Relation> relation = database.relationOfPair(links.back().id, id);
            link.weight = relation ? roundToInteger(relation->weight) : 0;
            link.strength = strengthOf(link.weight, strongest, thresholds);
        }
        links.push_back(std::move(link));
    }
    return links;
}

QJsonObject toJson(const ChainLink& link, bool isSource) {
    QJsonObject object{{"id", link.id}, {"description", QString::fromStdString(link.description)}};
    if (!isSource) {
        object.insert("weight", static_cast<qint64>(link.weight));
        object.insert("class", nameOf(link.strength));
    }
    return object;
}

QJsonObject toJson(int cost, const std::vector<ChainLink>& links) {
    QJsonArray array;
    for (const ChainLink& link : links)
        array.append(toJson(link, array.isEmpty()));
    return {{"cost", cost}, {"chain", array}};
}

QJsonObject toJson(const LinkChain& chain) {
    QJsonArray ids;
    for (const int id : chain.ids)
        ids.append(id);
    return {{"cost", chain.cost}, {"chain", ids}};
}

std::vector<LinkChain> searchContacts(const Database& database, const LinksRequest& request) {
    if (request.source == request.target)
        throw Error(kSameContactMessage);
    for (const int id : request.without)
        if (id == request.source || id == request.target)
            throw Error("A chain cannot avoid its own end, " + descriptionOf(database, id) + ".");
    std::vector<LinkChain> chains =
        LinkSearch(database, request.without)
            .findSeveral(request.source, request.target, request.count.value_or(1));
    if (chains.empty())
        throw Error(kNoChainMessage);
    return chains;
}

void printStairs(std::ostream& out, int cost, const std::vector<ChainLink>& links) {
    bool isSource = true;
    for (const ChainLink& link : links) {
        Line(out) << (isSource ? std::string(kStrengthWidth, ' ')
                               : strengthColumns(link.strength, link.weight))
                  << std::setw(7) << link.id << "  " << link.description;
        isSource = false;
    }
    Line(out) << "cost: " << cost;
}

/// Shows the progress of a domain search on the terminal.
class TerminalSearch : public DomainSearchProgress {
 public:
    void pairsCounted(std::size_t count) override { count_ = count; }
    void pairStarted(std::size_t index) override {
        if (line_.isDue())
            line_.write("Searching pair " + std::to_string(index) + " of " +
                        std::to_string(count_));
    }
    bool stopsAfterChain() override { return interrupt_.interrupted(); }

 private:
    TerminalLine line_;
    InterruptWatch interrupt_;
    std::size_t count_ = 0;
};

DomainLinks searchDomains(const Database& database, const DomainLinksRequest& request) {
    if (const std::optional<std::string> refusal = domainRefusal(request.source, request.target))
        throw Error(*refusal);
    TerminalSearch progress;
    DomainLinks links = findDomainLinks(database, request.source, request.target, progress);
    if (links.chains.empty())
        throw Error(noDomainLinksMessage(request.source, request.target));
    return links;
}

std::vector<LinkChain> onlyBest(const std::vector<LinkChain>& chains) {
    std::vector<int> costs;
    costs.reserve(chains.size());
    for (const LinkChain& chain : chains)
        costs.push_back(chain.cost);
    std::vector<LinkChain> best;
    for (const std::size_t position : bestChains(costs))
        best.push_back(chains[position]);
    return best;
}

void printChain(std::ostream& out, const Database& database, const LinkChain& chain) {
    Line line(out);
    line << std::setw(6) << chain.cost;
    const char* separator = "  ";
    for (const int id : chain.ids) {
        line << separator << id << ' ' << descriptionOf(database, id);
        separator = " - ";
    }
}

}  // namespace

void printLinks(std::ostream& out, const Database& database, const LinksRequest& request) {
    const std::vector<LinkChain> chains = searchContacts(database, request);
    QJsonArray array;
    const char* separator = "";
    for (const LinkChain& chain : chains) {
        const std::vector<ChainLink> links = readChain(database, chain.ids);
        if (request.json)
            array.append(toJson(chain.cost, links));
        else
            printStairs(out << separator, chain.cost, links);
        separator = "\n";
    }
    if (request.json)
        print(out, request.isForSeveral() ? QJsonDocument(array)
                                          : QJsonDocument(array.first().toObject()));
    else if (chains.size() < request.count.value_or(0))
        tell("There are no more chains.");
}

void printDomainLinks(std::ostream& out, const Database& database,
                      const DomainLinksRequest& request) {
    const DomainLinks links = searchDomains(database, request);
    const std::vector<LinkChain> chains = request.best ? onlyBest(links.chains) : links.chains;
    QJsonArray array;
    for (const LinkChain& chain : chains) {
        if (request.json)
            array.append(toJson(chain));
        else
            printChain(out, database, chain);
    }
    if (request.json)
        print(out, QJsonDocument(QJsonObject{{"source", QString::fromStdString(links.source)},
                                             {"target", QString::fromStdString(links.target)},
                                             {"chains", array}}));
    if (chains.empty())
        tell("All links cost too much for one to count as the best.");
}

}  // namespace pelk
