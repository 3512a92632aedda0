#include <QAbstractButton>
#include <QAccessible>
#include <QKeySequence>
#include <map>

#include "platform/desktop/qt/control.h"
#include "tests/support/spoken_controls.h"

namespace pelk {
namespace {

std::string nameOf(QAccessible::Role role) {
    static const std::map<QAccessible::Role, const char*> names = {
        {QAccessible::StaticText, "text"},
        {QAccessible::Graphic, "graphic"},
        {QAccessible::PushButton, "button"},
        {QAccessible::RadioButton, "radio button"},
        {QAccessible::Tree, "tree"},
        {QAccessible::List, "list"},
        {QAccessible::EditableText, "edit"},
        {QAccessible::Slider, "slider"},
        {QAccessible::ProgressBar, "progress"},
        {QAccessible::Chart, "chart"}};
    const auto name = names.find(role);
    return name == names.end() ? "" : name->second;
}

SpokenControl spoken(QWidget& control) {
    const QAccessibleInterface& found = *QAccessible::queryAccessibleInterface(&control);
    const auto* const button = qobject_cast<const QAbstractButton*>(&control);
    return {
        found.text(QAccessible::Name).toStdString(), nameOf(found.role()),
        button == nullptr ? "" : QKeySequence::mnemonic(button->text()).toString().toStdString()};
}

}  // namespace

std::vector<SpokenControl> spokenControls(Window& window) {
    const QWidget& widget = dynamic_cast<NativeWidget&>(window).nativeWidget();
    std::vector<SpokenControl> controls;
    for (QWidget* const control :
         widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (!control->isWindow() && control->isVisible())
            controls.push_back(spoken(*control));
    return controls;
}

}  // namespace pelk
