#include "views/view_options.h"

namespace pelk {
namespace {

/// Returns the choice that was saved; 0 for anything else.
int savedChoice(const Settings& settings, const char* key, int choices) {
    const std::string text = settings.read(key).value_or("0");
    for (int choice = 1; choice < choices; ++choice)
        if (text == std::to_string(choice))
            return choice;
    return 0;
}

}  // namespace

void ViewOptions::Group::mark() const {
    for (std::size_t item = 0; item < items.size(); ++item)
        items[item]->setChecked(static_cast<int>(item) + first == chosen);
}

ViewOptions::ViewOptions(Window& window, Settings& settings)
    : button(window.addButton({}, "&Options")), menu(window.addPopupMenu()), settings_(settings) {
    add(orders_, {"Sort by name", "Sort by strength", "Sort by e-mails"});
    menu.addSeparator();
    add(filters_, {"Show all", "Show medium and strong", "Show strong"});
    menu.addSeparator();
    add(registered_, {"Domains by registered name"});
    add(lists_, {"Show lists and robots"});
}

void ViewOptions::add(Group& group, const std::vector<const char*>& captions) {
    const int choices = captions.size() == 1 ? 2 : static_cast<int>(captions.size());
    for (const char* const caption : captions) {
        MenuItem& item = menu.addItem(caption);
        const int choice = static_cast<int>(group.items.size());
        item.onClick = [this, &group, choice] {
            choose(group, group.items.size() == 1 ? 1 - group.chosen : choice);
        };
        group.items.push_back(&item);
    }
    group.chosen = savedChoice(settings_, group.key, choices);
    group.mark();
}

void ViewOptions::enableRelations(bool enabled) {
    for (const Group* const group : {&orders_, &filters_})
        for (MenuItem* const item : group->items)
            item->setEnabled(enabled);
}

void ViewOptions::choose(Group& group, int choice) {
    if (group.chosen == choice)
        return;
    group.chosen = choice;
    group.mark();
    settings_.write(group.key, std::to_string(choice));
    if (onChange)
        onChange();
}

}  // namespace pelk
