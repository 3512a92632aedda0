#include "mailstore/item_kind.h"

#include "mailstore/mail_text.h"
#include "mailstore/meeting_search.h"

namespace pelk {

bool isReport(const ContentType& type) {
    if (!type.is("multipart", "report"))
        return false;
    const std::string report = type.parameter("report-type");
    return equalsIgnoringCase(report, "delivery-status") ||
           equalsIgnoringCase(report, "disposition-notification");
}

ItemKind itemKind(const MessagePlace& place, const MessageHeader& header) {
    const ContentType type(header);
    if (isReport(type))
        return ItemKind::Report;
    return isMeeting(place, header, type) ? ItemKind::Meeting : ItemKind::Mail;
}

}  // namespace pelk
