#pragma once
// Saves the database after a user's change. If that fails, a command line ends with the error, and
// a program with windows keeps the change in memory.

#include <functional>
#include <string>
#include <utility>

#include "db/database.h"
#include "db/storage.h"
#include "platform/dialogs.h"

namespace pelk {

/// The change is in memory and could not be saved. `what()` says why.
class UnsavedChange : public Error {
 public:
    UnsavedChange(const std::string& why, std::string notice)
        : Error(why), notice_(std::move(notice)) {}
    /// The message for the user of a program that continues.
    const std::string& notice() const { return notice_; }

 private:
    std::string notice_;
};

/// Throws `UnsavedChange` when the database cannot be saved.
void saveChange(const Database& database, Storage& storage);

/// Runs `act`, and shows a message if its change is in memory only. Passes on all other exceptions.
void tellIfUnsaved(Dialogs& dialogs, const std::function<void()>& act);

}  // namespace pelk
