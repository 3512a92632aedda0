#pragma once
// The document of a history, see docs/database-format.md.

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "db/date_stamp.h"
#include "db/store_dates.h"
#include "history/history.h"
#include "platform/xml.h"

namespace pelk {

/// A history and what has been counted into it.
struct HistoryContent {
    History history;
    /// The dates of the mail stores, as those of the database, but for the history alone.
    StoreDates stores;
    /// The stamp of the end of the last scan that counted into the history.
    std::string date{kNeverScanned};
    /// The addresses that the user has named as their own.
    std::vector<std::string> ownAddresses;

    void swap(HistoryContent& other) noexcept {
        history.swap(other.history);
        std::swap(stores, other.stores);
        date.swap(other.date);
        ownAddresses.swap(other.ownAddresses);
    }

    bool empty() const {
        return history.empty() && ownAddresses.empty() && stores.all().empty() &&
               date == kNeverScanned;
    }
};

using MakeXmlDocument = std::function<std::unique_ptr<XmlDocument>()>;

/// Returns the document as text. Leaves out addresses without e-mails or record.
std::string textOf(const HistoryContent& content, const MakeXmlDocument& makeDocument);

/// Returns the content of a document. Throws `DamagedData` when it is not that of a history, and
/// `Error` when the library fails.
HistoryContent readHistory(std::string text, const MakeXmlDocument& makeDocument);

}  // namespace pelk
