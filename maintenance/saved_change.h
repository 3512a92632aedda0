#pragma once
// The save after a change that a command of the user made, and what comes of one that fails: a
// command line ends with the fault, a program that goes on keeps the change in memory.

#include <functional>
#include <string>
#include <utility>

#include "db/database.h"
#include "db/storage.h"
#include "platform/dialogs.h"

namespace pelk {

/// The change stands in memory and could not be saved. `what()` says why.
class UnsavedChange : public Error {
 public:
    UnsavedChange(const std::string& why, std::string notice)
        : Error(why), notice_(std::move(notice)) {}
    /// What the user of a program that goes on is told.
    const std::string& notice() const { return notice_; }

 private:
    std::string notice_;
};

/// Throws `UnsavedChange` when the database cannot be saved.
void saveChange(const Database& database, Storage& storage);

/// Does what the user wants done, and tells when the change stands in memory only. Everything else
/// that `act` throws it lets through.
void tellIfUnsaved(Dialogs& dialogs, const std::function<void()>& act);

}  // namespace pelk
