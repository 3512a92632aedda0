#include "mailstore/item_kind.h"

#include "mailstore/mail_text.h"
#include "mailstore/meeting_search.h"

namespace pelk {

ItemKind itemKind(const MessagePlace& place, const MessageHeader& header) {
    const ContentType type(header);
    if (type.is("multipart", "report")) {
        const std::string report = type.parameter("report-type");
        if (equalsIgnoringCase(report, "delivery-status") ||
            equalsIgnoringCase(report, "disposition-notification"))
            return ItemKind::Report;
    }
    return isMeeting(place, header, type) ? ItemKind::Meeting : ItemKind::Mail;
}

}  // namespace pelk
