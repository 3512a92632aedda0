#include "scan/tally.h"

namespace pelk {

StoreLedger::Store Tally::beginStore(const std::string& place,
                                     const std::function<StoreLedger::Sample()>& takeSample,
                                     int clockTolerance) {
    copies_.beginStore();
    return ledger_.beginStore(place, takeSample, clockTolerance);
}

void Tally::beginFolder(const std::string& place) {
    ledger_.beginFolder(place);
    copies_.beginFolder();
}

bool Tally::isNew(MailItem& item, const std::string& stamp) {
    const StoreLedger::Age age = ledger_.ageOf(item, stamp);
    if (age == StoreLedger::Age::CountedAhead)
        copies_.add(item.fingerprint());
    return age == StoreLedger::Age::New;
}

Tally::Result Tally::count(MailItem& item, const std::string& stamp, std::uint64_t print,
                           const std::function<bool()>& record) {
    const bool copy = isCopy(item, print);
    if (!copy && !record())
        return Result::NotRecorded;
    ledger_.noteCounted(item, stamp, print);
    copies_.add(print);
    return copy ? Result::Copy : Result::Recorded;
}

/// Different e-mails may have equal fingerprints, so only those with a Message-ID count as copies.
bool Tally::isCopy(MailItem& item, std::uint64_t print) const {
    return !countsCopies_ && copies_.isKnown(print) && !item.messageId().empty();
}

}  // namespace pelk
