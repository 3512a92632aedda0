#pragma once
// The steps of a scan, none of which takes others with it when it fails.

#include "platform/error.h"
#include "platform/mail_client.h"
#include "scan/scan_outcome.h"

namespace pelk {

class Steps {
 public:
    /// Counts faults in the outcome, which outlives this.
    explicit Steps(ScanOutcome& outcome) : outcome_(outcome) {}

    /// Runs a step that a fault of the mail system ends, and nothing but that step. Returns false
    /// after a fault; an item that is no e-mail is none.
    template <typename Step>
    bool attempt(const Step& step) {
        try {
            step();
        } catch (const NotAMailItem&) {
            // Mail folders hold such items; they are passed over.
        } catch (const Error& error) {
            noteFault(error);
            return false;
        }
        return true;
    }

    void noteFault(const Error& error) {
        if (outcome_.faults++ == 0)
            outcome_.firstFault = error.what();
    }

 private:
    ScanOutcome& outcome_;
};

}  // namespace pelk
