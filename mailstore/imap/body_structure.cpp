#include "mailstore/imap/body_structure.h"

#include <string>
#include <string_view>

#include "mailstore/mail_text.h"
#include "mailstore/meeting_search.h"

namespace pelk {
namespace {

/// Each calendar costs a request to the server, so a hostile message must not name many.
constexpr std::size_t kMostCalendars = 4;

bool equals(const char* text, std::string_view other) {
    return text != nullptr && equalsIgnoringCase(text, other);
}

std::string parameter(const mailimap_body_fields& fields, std::string_view name) {
    if (fields.bd_parameter == nullptr)
        return {};
    for (clistiter* at = fields.bd_parameter->pa_list->first; at != nullptr; at = at->next) {
        const auto& one = *static_cast<const mailimap_single_body_fld_param*>(at->data);
        if (equals(one.pa_name, name))
            return one.pa_value;
    }
    return {};
}

std::string encodingOf(const mailimap_body_fields& fields) {
    switch (fields.bd_encoding->enc_type) {
        case MAILIMAP_BODY_FLD_ENC_BASE64:
            return "base64";
        case MAILIMAP_BODY_FLD_ENC_QUOTED_PRINTABLE:
            return "quoted-printable";
        default:
            return {};
    }
}

bool isAttachment(const mailimap_body_type_1part& part) {
    return part.bd_ext_1part != nullptr && part.bd_ext_1part->bd_disposition != nullptr &&
           equals(part.bd_ext_1part->bd_disposition->dsp_type, "attachment");
}

void visitPart(const mailimap_body_type_1part& part, const std::string& section,
               FetchedHeader& header) {
    if (part.bd_type != MAILIMAP_BODY_TYPE_1PART_TEXT || isAttachment(part))
        return;
    const mailimap_body_type_text& text = *part.bd_data.bd_type_text;
    if (!equals(text.bd_media_text, "calendar"))
        return;
    const std::string method = parameter(*text.bd_fields, "method");
    header.meeting = header.meeting || isMeetingMethod(method);
    if (method.empty() && header.calendars.size() < kMostCalendars)
        header.calendars.push_back({section, encodingOf(*text.bd_fields)});
}

/// `AnswerGuard` limits the depth of this recursion.
void visit(const mailimap_body& body, const std::string& section, FetchedHeader& header) {
    if (body.bd_type == MAILIMAP_BODY_1PART) {
        visitPart(*body.bd_data.bd_body_1part, section.empty() ? "1" : section, header);
        return;
    }
    const std::string prefix = section.empty() ? "" : section + ".";
    int number = 0;
    for (clistiter* at = body.bd_data.bd_body_mpart->bd_list->first; at != nullptr; at = at->next)
        visit(*static_cast<const mailimap_body*>(at->data), prefix + std::to_string(++number),
              header);
}

}  // namespace

void findCalendars(const mailimap_body& body, FetchedHeader& header) {
    visit(body, {}, header);
}

}  // namespace pelk
