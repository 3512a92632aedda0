#include "platform/guard.h"

#include <new>
#include <optional>
#include <string>

#include "platform/error.h"

namespace pelk {

namespace {

/// All handlers run on one thread.
int actsUnderWay = 0;

class ActCount {
 public:
    ActCount() { ++actsUnderWay; }
    ActCount(const ActCount&) = delete;
    ActCount& operator=(const ActCount&) = delete;
    ~ActCount() { --actsUnderWay; }
};

std::optional<std::string> faultOf(const std::function<void()>& act) {
    try {
        act();
        return std::nullopt;
    } catch (const Error& error) {
        return error.what();
    } catch (const std::bad_alloc&) {
        return kNotEnoughMemory;
    } catch (const std::exception& error) {
        return std::string("Unexpected error: ") + error.what();
    } catch (...) {
        return "Unexpected error.";
    }
}

}  // namespace

void guarded(Dialogs& dialogs, const std::function<void()>& act) noexcept {
    const ActCount count;
    try {
        if (const auto fault = faultOf(act))
            dialogs.message(*fault, Buttons::Ok);
    } catch (...) {  // Not even the box can be shown; the exception ends here nevertheless.
    }
}

int guardedActs() {
    return actsUnderWay;
}

}  // namespace pelk
