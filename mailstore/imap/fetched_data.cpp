#include "mailstore/imap/fetched_data.h"

#include <string>

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

}  // namespace pelk
