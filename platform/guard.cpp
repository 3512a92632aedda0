#include "platform/guard.h"

#include <optional>
#include <string>

#include "platform/error.h"

namespace pelk {

namespace {

std::optional<std::string> faultOf(const std::function<void()>& act) {
    try {
        act();
        return std::nullopt;
    } catch (const Error& error) {
        return error.what();
    } catch (const std::exception& error) {
        return std::string("Unexpected fault: ") + error.what();
    } catch (...) {
        return "Unexpected fault.";
    }
}

}  // namespace

void guarded(Dialogs& dialogs, const std::function<void()>& act) noexcept {
    try {
        if (const auto fault = faultOf(act))
            dialogs.message(*fault, Buttons::Ok);
    } catch (...) {  // Not even the box can be shown: the fault ends here all the same.
    }
}

}  // namespace pelk
