#include "platform/windows/controls/gdiplus_session.h"

#include "platform/error.h"

namespace pelk {

GdiplusSession::GdiplusSession() {
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token_, &input, nullptr) != Gdiplus::Ok)
        throw Error("Windows cannot draw pictures: GDI+ does not start.");
}

GdiplusSession::~GdiplusSession() {
    Gdiplus::GdiplusShutdown(token_);
}

std::shared_ptr<GdiplusSession> GdiplusSession::shared() {
    static std::weak_ptr<GdiplusSession> current;
    std::shared_ptr<GdiplusSession> found = current.lock();
    if (found == nullptr)
        current = found = std::make_shared<GdiplusSession>();
    return found;
}

}  // namespace pelk
