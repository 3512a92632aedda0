#include "maintenance/merge_search.h"

#include "views/contact_text.h"

namespace pelk {

std::size_t MergeSearch::find(const std::string& query) {
    showNone();
    ids_ = contacts_.find(*database_, query);
    const HiddenContacts::Ids& hidden = hiddenIds(hidden_, *database_);
    std::erase_if(ids_, [&hidden](int id) { return hidden.contains(id); });
    return ids_.size();
}

void MergeSearch::show(std::size_t hit) {
    shown_ = ids_[hit];
    const std::optional<Contact> contact = shown();
    line_.setText(contact ? describe(*contact) : "");
}

void MergeSearch::showNone() {
    shown_.reset();
    line_.setText("");
}

std::optional<Contact> MergeSearch::shown() const {
    return shown_ ? database_->contact(*shown_) : std::nullopt;
}

}  // namespace pelk
