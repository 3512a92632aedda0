#pragma once
// Receives the clicks of one command-bar button.

#include <functional>
#include <memory>
#include <utility>

#include "platform/windows/com.h"
#include "platform/windows/com_object.h"

namespace pelk {

/// The event interface of a command-bar button, a dispinterface.
inline constexpr IID kButtonEventsInterface{
    0x000C0351, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

/// A click may end its own connection: the sink and its handler live until the click is handled.
class ClickSink : public AutomationObject<IDispatch> {
 public:
    /// `clicked` must not throw.
    explicit ClickSink(std::function<void()> clicked)
        : clicked_(std::make_shared<std::function<void()>>(std::move(clicked))) {}

    /// Makes further clicks do nothing.
    void disarm() { clicked_.reset(); }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*,
                                     EXCEPINFO*, UINT*) override {
        constexpr DISPID kClick = 1;
        const ComPtr<ClickSink> self(this);
        const auto clicked = clicked_;
        if (id == kClick && clicked)
            (*clicked)();
        return S_OK;
    }

 private:
    bool isOtherName(REFIID iid) const override { return iid == kButtonEventsInterface; }

    std::shared_ptr<std::function<void()>> clicked_;
};

}  // namespace pelk
