#pragma once
// Finds contacts to merge by their names and addresses, and shows each as a line of text.

#include <optional>
#include <string>
#include <vector>

#include "db/database.h"
#include "platform/controls.h"
#include "views/contact_search.h"
#include "views/hidden_contacts.h"
#include "views/search_field.h"

namespace pelk {

class MergeSearch : public SearchTarget {
 public:
    /// The references must outlive this object; `database` and `hidden` are the form's, which may
    /// set them later.
    MergeSearch(Label& line, const Database* const& database, HiddenContacts* const& hidden,
                const Language& language)
        : line_(line), database_(database), hidden_(hidden), contacts_(language) {}

    std::size_t find(const std::string& query) override;
    void show(std::size_t hit) override;
    void noQuery() override { showNone(); }
    void prepare() override { contacts_.prepare(database_); }
    /// Returns the contact that is shown; nothing if there is none, or no longer.
    std::optional<Contact> shown() const;

 private:
    void showNone();

    Label& line_;
    const Database* const& database_;
    HiddenContacts* const& hidden_;
    ContactSearch contacts_;
    std::vector<int> ids_;
    std::optional<int> shown_;
};

}  // namespace pelk
