// Fuzzes the import of a document into a database of four contacts, and the search for duplicates
// in that document.

#include "fuzz/fuzz.h"
#include "maintenance/duplicates.h"
#include "maintenance/import_merge.h"
#include "platform/utf8.h"

namespace pelk {
namespace {

constexpr const char* kCurrent =
    "<pelkDB date='2024-03-01T08:00:00' totalMails='9' totalContacts='5' maxInd='50' minInd='5'>"
    "<contacts><contact id='1' name='Ann'><emails><email value='ann@a'/><email value='ann@b'/>"
    "</emails></contact><contact id='2'><emails><email value='bob@b'/></emails></contact>"
    "<contact id='4' name='Cy'><emails><email value='cy@c'/></emails></contact>"
    "<contact id='5' name='Di'/></contacts><relations total='0'>"
    "<relation part1='1' part2='2' weight='5'/><relation part1='2' part2='4' weight='4'/>"
    "</relations></pelkDB>";

class FixedAnswer : public ImportGuide {
 public:
    explicit FixedAnswer(bool answer) : answer_(answer) {}
    bool confirmsMerge(const std::string&) override { return answer_; }

 private:
    bool answer_;
};

double sumOfWeights(const Database& database) {
    double sum = 0;
    for (const Relation& relation : database.relations())
        sum += relation.weight;
    return sum;
}

}  // namespace
}  // namespace pelk

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pelk;
    const std::unique_ptr<Database> imported = openDocument(textOf(data, size));
    if (!imported)
        return 0;
    for (const Duplicate& pair : findDuplicates(*imported, language()))
        require(isXmlText(pair.text) && pair.id < pair.otherId, "a reason is text", pair.text);
    const std::unique_ptr<Database> current = openDocument(kCurrent);
    const std::size_t contacts = current->contactCount();
    const double weights = sumOfWeights(*current);
    FixedAnswer guide(size % 4 == 0);
    try {
        importMerge(*current, *imported, guide);
    } catch (const Error&) {
        // The database is full, or a relation is damaged.
    }
    require(current->contactCount() >= contacts, "an import removes no contact");
    if (!faultOf(imported->root()).empty())
        return 0;
    require(sumOfWeights(*current) <= weights + sumOfWeights(*imported),
            "no e-mail is counted twice");
    requireSoundAndRoundTrip(*current);
    return 0;
}
