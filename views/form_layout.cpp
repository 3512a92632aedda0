#include "views/form_layout.h"

#include <algorithm>

namespace pelk {

FormLayout::FormLayout(Window& window, Size design) : window_(window), design_(design) {
    window.setMinimumInnerSize(design);
    window.setInnerSize(design);
    window.onResize = [this] { apply(); };
}

void FormLayout::add(Control& control, const Rect& bounds, const Follow& follow) {
    items_.push_back({&control, bounds, follow});
    control.setBounds(bounds);
}

void FormLayout::apply() {
    const Size inner = window_.innerSize();
    const int wider = std::max(0, inner.width - design_.width);
    const int higher = std::max(0, inner.height - design_.height);
    for (const auto& [control, bounds, follow] : items_)
        control->setBounds({bounds.left + follow.left * wider, bounds.top + follow.top * higher,
                            bounds.width + follow.width * wider,
                            bounds.height + follow.height * higher});
}

}  // namespace pelk
