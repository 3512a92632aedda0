#pragma once
// One of the counts that a scan makes: which e-mails are new to it, and which are copies of others.

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "scan/copy_filter.h"
#include "scan/store_ledger.h"

namespace pelk {

class Tally {
 public:
    /// `countsCopies`: counts an e-mail in every folder of a store that has it.
    Tally(StoreLedger ledger, bool countsCopies)
        : ledger_(std::move(ledger)), countsCopies_(countsCopies) {}

    /// See `StoreLedger`, which these functions update together with the filter of copies.
    StoreLedger::Store beginStore(const std::string& place,
                                  const std::function<StoreLedger::Sample()>& takeSample,
                                  int clockTolerance);
    void beginFolder(const std::string& place);
    /// Returns whether the e-mail of the current folder has not been counted. Requires: called once
    /// for each e-mail.
    bool isNew(MailItem& item, const std::string& stamp);

    /// A new e-mail that cannot be recorded stays new.
    enum class Result { NotRecorded, Copy, Recorded };
    /// Calls `record` with a new e-mail that is no copy, and notes it as counted if that returns
    /// true. `print` is the fingerprint of the e-mail.
    Result count(MailItem& item, const std::string& stamp, std::uint64_t print,
                 const std::function<bool()>& record);

    StoreLedger& ledger() { return ledger_; }
    StoreDates finish(bool whole) && { return std::move(ledger_).finish(whole); }

 private:
    bool isCopy(MailItem& item, std::uint64_t print) const;

    StoreLedger ledger_;
    CopyFilter copies_;
    bool countsCopies_;
};

}  // namespace pelk
