// Fuzzes edits and link searches on a random document. Each index must stay consistent with its
// query, and each chain must equal that of `DenseSearch`.

#include <algorithm>
#include <array>

#include "fuzz/fuzz.h"
#include "links/link_search.h"
#include "tests/db/index_fault.h"
#include "tests/links/dense_search.h"

namespace pelk {
namespace {

constexpr int kIds = 12;
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
        if (kind_ == Kind::Sound)
            requireSoundAndRoundTrip(*database_);
    }

 private:
    int number(int most) { return next_ == end_ ? 0 : *next_++ % (most + 1); }
    std::string address() { return "p" + std::to_string(number(kIds)) + "@x"; }

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
        if (!database_->undo())
            return;
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
            case 5:
                database_->renameContact(a, "Ann");
                database_->setThresholds(number(100), number(100));
                break;
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
        } catch (const Error&) {
            require(!searchable, "a search is refused only for invalid ids");
        }
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
