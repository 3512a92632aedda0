#include "platform/windows/mail/automation_client.h"

#include <charconv>
#include <string>
#include <utility>

#include "platform/windows/mail/automation_session.h"

namespace pelk {
namespace {

/// From this version on the mail client has a ribbon and hides command bars.
constexpr int kFirstVersionWithRibbon = 14;

ComPtr<IDispatch> required(IDispatch* application) {
    if (application == nullptr)
        throw Error("The mail client did not pass its application object.");
    return ComPtr<IDispatch>(application);
}

}  // namespace

AutomationClient::AutomationClient(IDispatch* application, ClickGuard guard)
    : application_(required(application), "the application", std::make_shared<MemberIds>()),
      guard_(std::move(guard)) {}

int AutomationClient::majorVersion() const {
    try {
        const std::string version = application_.text("Version");
        int major = 0;
        std::from_chars(version.data(), version.data() + version.size(), major);
        return major;
    } catch (const Error&) {
        return 0;
    }
}

bool AutomationClient::hasRibbon() const {
    return majorVersion() >= kFirstVersionWithRibbon;
}

std::unique_ptr<MailSession> AutomationClient::session() {
    return openSession(application_.object("GetNamespace", "the name space", {variantOf("MAPI")}));
}

std::unique_ptr<CommandPopup> AutomationClient::addPopup(std::string_view bar,
                                                         std::string_view caption,
                                                         std::string_view tag) {
    if (hasRibbon())
        return nullptr;
    return addCommandBarPopup(application_, guard_, bar, caption, tag);
}

}  // namespace pelk
