// Fuzzes edits, link searches and the search for duplicates on a random document. Each index must
// stay consistent with its query, and each best chain must equal that of `DenseSearch`.

#include <algorithm>
#include <array>
#include <set>
#include <tuple>

#include "fuzz/fuzz.h"
#include "links/link_search.h"
#include "maintenance/duplicates.h"
#include "tests/db/index_fault.h"
#include "tests/links/dense_search.h"

namespace pelk {
namespace {

constexpr int kIds = 12;
constexpr std::size_t kChains = 4;
constexpr std::array kNames{"Ann Smith", "Smith, Ann", "A. Smith", "Ann", "Ann Jones"};
constexpr std::array kWeights{"1",   "2",  "3",     "9",      "",      "x",
                              "2.5", "-4", "99999", "100000", "50001", "1000000000000"};

/// `Sound`: made by the program. `Foreign`: ids, addresses and pairs may repeat or be invalid.
/// `Graph`: searchable, with many chains of equal cost.
enum class Kind { Sound, Foreign, Graph };

class Edits {
 public:
    Edits(const std::uint8_t* data, std::size_t size)
        : next_(data), end_(data + size), kind_(static_cast<Kind>(number(2))), database_(start()) {}

    void run() {
        while (next_ != end_)
            step();
        requireIndexes();
        for (const int source : {1, kIds / 2, kIds})
            for (int target = 1; target <= kIds; ++target)
                requireChain(source, target);
        requireDuplicates();
        if (kind_ == Kind::Sound)
            requireSoundAndRoundTrip(*database_);
    }

 private:
    int number(int most) { return next_ == end_ ? 0 : *next_++ % (most + 1); }

    std::string address() {
        const int which = number(kIds);
        return which % 2 == 0 ? "p" + std::to_string(which) + "@x"
                              : "ann.smith@x" + std::to_string(which);
    }

    std::string anyIdText() {
        constexpr std::array odd{"", "x", "007", "+3", "40000"};
        if (kind_ == Kind::Graph)
            return std::to_string(number(kIds - 1) + 1);
        return number(9) == 0 ? odd[static_cast<std::size_t>(number(odd.size() - 1))]
                              : std::to_string(number(kIds));
    }

    std::unique_ptr<Database> start() {
        if (kind_ == Kind::Sound)
            return openDocument(kFirstStartDocument);
        std::string xml = "<pelkDB totalContacts='" +
                          std::to_string(kind_ == Kind::Graph ? kIds : number(kIds)) +
                          "'><contacts>";
        for (int count = number(kIds); count > 0; --count)
            xml += "<contact id='" + anyIdText() + "'><emails><email value='" + address() +
                   "'/></emails></contact>";
        xml += "</contacts><relations>";
        const auto weights = static_cast<int>(kind_ == Kind::Graph ? 3 : kWeights.size());
        for (int count = number(40); count > 0; --count)
            xml += "<relation part1='" + anyIdText() + "' part2='" + anyIdText() + "' weight='" +
                   kWeights[static_cast<std::size_t>(number(weights - 1))] + "'/>";
        return openDocument(xml + "</relations></pelkDB>");
    }

    /// Returns an existing contact for a sound document, as the program never passes another id.
    int anyId() {
        const int id = number(kIds);
        return kind_ != Kind::Sound || database_->contact(id) ? id : 0;
    }

    void step() {
        const std::uint64_t revision = database_->revision();
        const std::string before = database_->xml();
        if (number(1) == 0) {
            requireUndo(before);
            return;
        }
        edit();
        require(database_->revision() > revision || database_->xml() == before,
                "every edit raises the revision");
    }

    void requireUndo(const std::string& before) {
        database_->inStep("edit", [this] { edit(); });
        const std::string after = database_->xml();
        // Without a change there is no new step, and an undo would revert an earlier one.
        if (after == before)
            return;
        require(database_->undo(), "a change can be undone");
        require(database_->xml() == before, "an undo returns to the same bytes", before);
        requireIndexes();
        database_->redo();
        require(database_->xml() == after, "a redo returns to the same bytes", after);
    }

    void edit() {
        const int a = anyId();
        const int b = anyId();
        const std::string free = address();
        const bool isFree = kind_ != Kind::Sound || database_->ownersOf(free).empty();
        switch (number(9)) {
            case 0:
                if (isFree && database_->totalContacts() < 2 * kIds)
                    database_->addContact("", free);
                break;
            case 1:
                if (isFree)
                    database_->addAddresses(a, {free});
                break;
            case 2:
                database_->moveAddresses(a, b);
                break;
            case 3:
                database_->removeContacts({a, b, a});
                break;
            case 4:
                database_->removeRelation(a, b);
                break;
            case 5: {
                database_->renameContact(
                    a, kNames[static_cast<std::size_t>(number(kNames.size() - 1))]);
                const int weak = number(100);
                database_->setThresholds(std::max(weak, number(100)), weak);
                break;
            }
            case 6:
                requireIndexes();
                break;
            case 7:
            case 8:
                requireChain(number(2 * kIds), number(2 * kIds));
                break;
            default:
                if (a != b && a > 0 && b > 0)
                    database_->addRelationWeight(a, b, number(255) * number(255));
        }
    }

    void requireIndexes() const {
        const std::string fault = indexFault(*database_, kIds + 1);
        require(fault.empty(), "every look-up finds what its query selects", fault);
    }

    void requireChain(int source, int target) {
        const int contacts = static_cast<int>(database_->totalContacts());
        const auto holds = [contacts](int id) { return id >= 1 && id <= contacts; };
        const std::vector<Relation> relations = database_->relations();
        const bool searchable =
            holds(source) && holds(target) &&
            std::all_of(relations.begin(), relations.end(), [&](const Relation& relation) {
                return holds(relation.part1) && holds(relation.part2);
            });
        try {
            const std::optional<LinkChain> found = search_.find(source, target);
            require(searchable, "a search with invalid ids is refused");
            DenseSearch<> dense(*database_);
            dense.search(source);
            const std::optional<LinkChain> expected = dense.chainTo(target);
            require(found.has_value() == expected.has_value() &&
                        (!found || (found->ids == expected->ids && found->cost == expected->cost)),
                    "a chain is that of the dense search", database_->xml());
            requireRanking(search_.findSeveral(source, target, kChains), found);
        } catch (const Error&) {
            require(!searchable, "a search is refused only for invalid ids");
        }
    }

    void requireRanking(const std::vector<LinkChain>& chains,
                        const std::optional<LinkChain>& best) const {
        require(chains.empty() != best.has_value() && chains.size() <= kChains,
                "there are chains if there is a best one");
        if (chains.empty())
            return;
        const LinkGraph graph(*database_);
        std::set<std::vector<int>> all;
        for (const LinkChain& chain : chains) {
            requireSimple(chain, graph);
            require(chain.cost >= best->cost && chain.cost < kNoLink, "the best chain is first");
            require(chain.ids.front() == best->ids.front() && chain.ids.back() == best->ids.back(),
                    "all chains have the same ends");
            require(all.insert(chain.ids).second, "no chain comes twice");
        }
        require(std::is_sorted(chains.begin(), chains.end(),
                               [](const LinkChain& left, const LinkChain& right) {
                                   return left.cost < right.cost;
                               }),
                "chains come by ascending cost");
        require(chains.front().ids == best->ids, "the best chain is first");
    }

    /// Requires that the chain meets no contact twice, and costs what its edges cost.
    void requireSimple(const LinkChain& chain, const LinkGraph& graph) const {
        const bool isOneContact = chain.ids.front() == chain.ids.back();
        const std::set<int> met(chain.ids.begin(), chain.ids.end());
        require(met.size() == chain.ids.size() || (isOneContact && met.size() == 1),
                "a chain meets no contact twice");
        int cost = 0;
        for (std::size_t place = 1; !isOneContact && place < chain.ids.size(); ++place)
            for (const LinkEdge edge : graph.edgesOf(chain.ids[place - 1]))
                cost += edge.to() == chain.ids[place] ? edge.cost() : 0;
        require(cost == chain.cost, "a chain costs what its edges cost", database_->xml());
    }

    void requireDuplicates() const {
        const std::vector<Duplicate> found = findDuplicates(*database_, language());
        for (const Duplicate& pair : found) {
            require(pair.id < pair.otherId && !pair.text.empty(), "a pair of two contacts");
            require(database_->contact(pair.id) && database_->contact(pair.otherId),
                    "duplicates exist", database_->xml());
        }
        const auto place = [](const Duplicate& pair) {
            return std::tuple(pair.reason, pair.id, pair.otherId);
        };
        for (std::size_t next = 1; next < found.size(); ++next)
            require(place(found[next - 1]) < place(found[next]), "duplicates are in order",
                    database_->xml());
    }

    const std::uint8_t* next_;
    const std::uint8_t* const end_;
    const Kind kind_;
    const std::unique_ptr<Database> database_;
    LinkSearch search_{*database_};
};

}  // namespace
}  // namespace pelk

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    pelk::Edits(data, size).run();
    return 0;
}
