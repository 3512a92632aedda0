#include "views/form_layout.h"

namespace pelk {

FormLayout::FormLayout(Window& window, Size design) : window_(window), design_(design) {
    window.setMinimumInnerSize(design);
    window.setInnerSize(design);
    window.onResize = [this] { apply(); };
}

void FormLayout::add(Control& control, const Rect& bounds, const Anchor& anchor) {
    items_.push_back({&control, bounds, anchor});
    control.setBounds(bounds);
}

void FormLayout::apply() {
    const Size inner = window_.innerSize();
    const int wider = inner.width - design_.width;
    const int higher = inner.height - design_.height;
    for (const auto& [control, bounds, anchor] : items_)
        control->setBounds({bounds.left + anchor.left * wider, bounds.top + anchor.top * higher,
                            bounds.width + anchor.width * wider,
                            bounds.height + anchor.height * higher});
}

}  // namespace pelk
