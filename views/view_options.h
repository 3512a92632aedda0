#pragma once
// The options of the relations view: a button that opens a menu. The choices are remembered.

#include <functional>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/settings.h"
#include "views/relation_view.h"

namespace pelk {

class ViewOptions {
 public:
    /// Adds the button and its menu to the window. The owner opens the menu when the button is
    /// clicked. Both references must outlive this object.
    ViewOptions(Window& window, Settings& settings);
    ViewOptions(const ViewOptions&) = delete;
    ViewOptions& operator=(const ViewOptions&) = delete;

    RelationChoice relations() const {
        return {RelationOrder{orders_.chosen}, RelationFilter{filters_.chosen}};
    }
    /// Whether domains are grouped by registered name rather than label by label.
    bool byRegisteredName() const { return registered_.chosen != 0; }

    /// Enables the choices about relations, which a tree of domains does not show.
    void enableRelations(bool enabled);

    /// Whether mailing lists and robots are shown.
    bool showsLists() const { return lists_.chosen == 0; }

    /// Called when the user has made another choice.
    std::function<void()> onChange;

    Button& button;
    PopupMenu& menu;

 private:
    /// Menu items, one of which is checked. A single item is checked for one choice of two.
    struct Group {
        const char* key;
        std::vector<MenuItem*> items;
        int chosen = 0;
        /// The choice that a check mark on the first item means.
        int first = 0;

        /// Shows the choice among the items.
        void mark() const;
    };

    void add(Group& group, const std::vector<const char*>& captions);
    void choose(Group& group, int choice);

    Settings& settings_;
    Group orders_{"viewOrder", {}};
    Group filters_{"viewFilter", {}};
    Group registered_{"viewDomains", {}, 0, 1};
    Group lists_{"viewLists", {}};
};

}  // namespace pelk
