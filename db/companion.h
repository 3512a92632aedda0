#pragma once
// A file beside the database that follows its changes: the history of relations.

#include <optional>
#include <string>

#include "db/database.h"

namespace pelk {

/// The name of the companion's file in the folder of the database.
inline constexpr const char* kCompanionName = "pelk-history.db";

/// Its owner keeps the content in memory and gives it to `Storage::pairBeside` when it is to be
/// saved.
class Companion {
 public:
    virtual ~Companion() = default;
    /// Called within a step that may have removed contacts. Changes the content accordingly, with
    /// `Database::changeOutside`. Throws `Error` when that cannot be done.
    virtual void followLosses(Database& database) = 0;
    /// Called within the step that restores a copy of the database. `text` is the content of the
    /// companion's copy; nothing when there is none.
    virtual void restore(Database& database, std::optional<std::string> text) = 0;
    /// Called before each save of the database.
    virtual void prepareSave() = 0;
};

}  // namespace pelk
