#include "views/hidden_contacts.h"

#include "history/correspondent_kind.h"
#include "platform/error.h"

namespace pelk {
namespace {

const HiddenContacts::Ids kNobody;

}  // namespace

const HiddenContacts::Ids& HiddenContacts::of(const Database& database) {
    if (!hides_)
        return kNobody;
    const History* history = &empty_;
    try {
        history = &history_();
    } catch (const Error&) {
        // `text` says so.
    }
    if (database_ != &database || revision_ != database.revision() || found_ != history ||
        foundRevision_ != history->revision())
        find(database, *history);
    return ids_;
}

void HiddenContacts::find(const Database& database, const History& history) {
    ids_.clear();
    const ListHosts listHosts = listHostsIn(history);
    database.forEachContact([&](const Contact& contact) {
        if (kindOfContact(contact, history, listHosts).kind != CorrespondentKind::Person)
            ids_.insert(contact.id);
    });
    database_ = &database;
    revision_ = database.revision();
    found_ = &history;
    foundRevision_ = history.revision();
}

std::string HiddenContacts::text(const Database& database) {
    const std::size_t count = of(database).size();
    if (count == 0)
        return {};
    return std::to_string(count) + (found_ == &empty_ ? " hidden by name" : " hidden");
}

const HiddenContacts::Ids& hiddenIds(HiddenContacts* hidden, const Database& database) {
    return hidden == nullptr ? kNobody : hidden->of(database);
}

std::string hiddenText(HiddenContacts* hidden, const Database& database) {
    return hidden == nullptr ? std::string() : hidden->text(database);
}

}  // namespace pelk
