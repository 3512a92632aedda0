#pragma once
// Isolates the steps of a scan: a failure ends one step and no others.

#include "platform/error.h"
#include "platform/mail_client.h"
#include "scan/scan_outcome.h"

namespace pelk {

class Steps {
 public:
    /// Counts faults in `outcome`, which outlives this object.
    explicit Steps(ScanOutcome& outcome) : outcome_(outcome) {}

    /// Runs a step. Notes an `Error` of the mail system as a fault and returns false. An item that
    /// is not an e-mail ends the step but is no fault.
    template <typename Step>
    bool attempt(const Step& step) {
        try {
            step();
        } catch (const NotAMailItem&) {
            // Mail folders may contain such items. The scan skips them.
        } catch (const UnknownMailFormat& error) {
            // No later scan can read it, so it is no fault that one has to make up for.
            outcome_.unknownFormats.emplace_back(error.what());
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
