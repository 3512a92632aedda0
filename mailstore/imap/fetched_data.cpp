#include "mailstore/imap/fetched_data.h"

#include <chrono>
#include <string>

#include "mailstore/imap/body_structure.h"
#include "mailstore/message_time.h"

namespace pelk {
namespace {

/// Calls `visit` with each element of a list, which may be missing.
template <typename Element, typename Visit>
void forEach(const clist* list, const Visit& visit) {
    if (list == nullptr)
        return;
    for (clistiter* at = list->first; at != nullptr; at = at->next)
        visit(*static_cast<const Element*>(at->data));
}

std::int64_t secondsOf(const mailimap_date_time& time) {
    const std::chrono::year_month_day day{std::chrono::year(time.dt_year),
                                          std::chrono::month(static_cast<unsigned>(time.dt_month)),
                                          std::chrono::day(static_cast<unsigned>(time.dt_day))};
    if (!day.ok())
        return kNoTime;
    // The zone is in hours and minutes: 130 is 1:30.
    const int zone = time.dt_zone / 100 * 60 + time.dt_zone % 100;
    const std::int64_t days = std::chrono::sys_days(day).time_since_epoch().count();
    return ((days * 24 + time.dt_hour) * 60 + time.dt_min - zone) * 60 + time.dt_sec;
}

void takeFlags(const mailimap_msg_att_dynamic& flags, FetchedHeader& header) {
    forEach<mailimap_flag_fetch>(flags.att_list, [&header](const mailimap_flag_fetch& flag) {
        if (flag.fl_flag == nullptr)
            return;
        header.deleted = header.deleted || flag.fl_flag->fl_type == MAILIMAP_FLAG_DELETED;
        header.draft = header.draft || flag.fl_flag->fl_type == MAILIMAP_FLAG_DRAFT;
    });
}

void takeStatic(const mailimap_msg_att_static& att, FetchedHeader& header) {
    switch (att.att_type) {
        case MAILIMAP_MSG_ATT_UID:
            header.uid = att.att_data.att_uid;
            break;
        case MAILIMAP_MSG_ATT_INTERNALDATE:
            if (att.att_data.att_internal_date != nullptr)
                header.internalDate = secondsOf(*att.att_data.att_internal_date);
            break;
        case MAILIMAP_MSG_ATT_BODYSTRUCTURE:
            if (att.att_data.att_bodystructure != nullptr)
                findCalendars(*att.att_data.att_bodystructure, header);
            break;
        case MAILIMAP_MSG_ATT_BODY_SECTION:
            if (const mailimap_msg_att_body_section* const part = att.att_data.att_body_section)
                if (part->sec_body_part != nullptr)
                    header.text.assign(part->sec_body_part, part->sec_length);
            break;
        default:
            break;
    }
}

FetchedHeader headerOf(const mailimap_msg_att& message) {
    FetchedHeader header;
    forEach<mailimap_msg_att_item>(message.att_list, [&header](const mailimap_msg_att_item& item) {
        if (item.att_type == MAILIMAP_MSG_ATT_ITEM_DYNAMIC && item.att_data.att_dyn != nullptr)
            takeFlags(*item.att_data.att_dyn, header);
        else if (item.att_type == MAILIMAP_MSG_ATT_ITEM_STATIC &&
                 item.att_data.att_static != nullptr)
            takeStatic(*item.att_data.att_static, header);
    });
    return header;
}

}  // namespace

std::vector<ListedMailbox> mailboxesIn(const mailimap_response_info& answer) {
    std::vector<ListedMailbox> mailboxes;
    forEach<mailimap_mailbox_list>(answer.rsp_mailbox_list, [&](const mailimap_mailbox_list& box) {
        ListedMailbox mailbox{box.mb_name, box.mb_delimiter, {}};
        if (const mailimap_mbx_list_flags* const flags = box.mb_flag) {
            if (flags->mbf_type == MAILIMAP_MBX_LIST_FLAGS_SFLAG &&
                flags->mbf_sflag == MAILIMAP_MBX_LIST_SFLAG_NOSELECT)
                mailbox.attributes.emplace_back("Noselect");
            forEach<mailimap_mbx_list_oflag>(
                flags->mbf_oflags, [&mailbox](const mailimap_mbx_list_oflag& flag) {
                    if (flag.of_flag_ext != nullptr)
                        mailbox.attributes.emplace_back(flag.of_flag_ext);
                });
        }
        mailboxes.push_back(std::move(mailbox));
    });
    return mailboxes;
}

std::vector<std::uint32_t> numbersIn(const mailimap_response_info& answer) {
    std::vector<std::uint32_t> numbers;
    forEach<std::uint32_t>(answer.rsp_search_result,
                           [&numbers](std::uint32_t number) { numbers.push_back(number); });
    return numbers;
}

std::vector<FetchedHeader> headersIn(const mailimap_response_info& answer) {
    std::vector<FetchedHeader> headers;
    forEach<mailimap_msg_att>(answer.rsp_fetch_list, [&headers](const mailimap_msg_att& message) {
        FetchedHeader header = headerOf(message);
        if (header.uid != 0)
            headers.push_back(std::move(header));
    });
    return headers;
}

}  // namespace pelk
