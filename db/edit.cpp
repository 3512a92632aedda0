#include "db/edit.h"

#include <string_view>
#include <utility>

namespace pelk {

void AttributeEdit::toggle(Content& content) {
    std::optional<std::string> current = element.attribute(name);
    if (other)
        element.setAttribute(name, *other);
    else
        element.removeAttribute(name);
    other = std::move(current);
    // The indexes hold no other attribute that ever changes.
    if (std::string_view(name) == "weight")
        content.indexesAreStale = true;
}

ElementEdit::~ElementEdit() {
    if (element_ && place_)
        element_.remove();
}

void ElementEdit::detach() {
    XmlPlace place = element_.place();
    element_.detach();
    place_ = std::move(place);
}

void ElementEdit::toggle(Content& content) {
    if (place_) {
        element_.insertAt(*place_);
        place_.reset();
    } else {
        detach();
    }
    content.indexesAreStale = true;
}

void ContentEdit::toggle(Content& content) {
    std::swap(content, *other);
}

}  // namespace pelk
