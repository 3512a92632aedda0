#pragma once
// Which relations a tree of contacts shows, and in which order.

#include <cstdint>
#include <utility>

#include "db/database.h"
#include "views/hidden_contacts.h"
#include "views/strength.h"

namespace pelk {

/// Contacts of equal rank are in alphabetical order. A contact has the strength of its strongest
/// relation, and the e-mails of all.
enum class RelationOrder { ByName, ByStrength, ByMails };

enum class RelationFilter { All, MediumAndStrong, Strong };

struct RelationChoice {
    RelationOrder order = RelationOrder::ByName;
    RelationFilter filter = RelationFilter::All;
};

/// Applies a choice to one database. Relations are strong or weak relative to `strongest`.
class RelationView {
 public:
    /// Leaves out the contacts in `hidden`.
    RelationView(const Database& database, RelationChoice choice, std::int64_t strongest,
                 HiddenContacts::Ids hidden = {})
        : database_(database),
          choice_(choice),
          strongest_(strongest),
          thresholds_(database.thresholds()),
          hidden_(std::move(hidden)) {}

    /// Whether to show a relation of that weight. A contact is shown if one of its relations is, or
    /// if nothing is filtered, unless it is hidden.
    bool shows(double weight) const;
    bool showsContact(int id) const;
    /// Whether the contact is hidden, even below a related one.
    bool hides(int id) const { return hidden_.contains(id); }
    /// Returns the rank of a relation of that weight, or of a contact. A higher rank comes first.
    std::int64_t rankOf(double weight) const;
    std::int64_t rankOfContact(int id) const;
    /// Whether all ranks are equal.
    bool isByName() const { return choice_.order == RelationOrder::ByName; }

 private:
    const Database& database_;
    RelationChoice choice_;
    std::int64_t strongest_;
    Thresholds thresholds_;
    HiddenContacts::Ids hidden_;
};

}  // namespace pelk
