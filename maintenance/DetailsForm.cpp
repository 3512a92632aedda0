#include "maintenance/DetailsForm.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "maintenance/relation_details.h"
#include "platform/form_sizes.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{6000, 2700};
constexpr int kWidth = kInnerSize.width - 2 * kFormMargin;
constexpr int kLineHeight = 260;

constexpr Rect kOkBounds = bottomButton(kInnerSize, 1);
constexpr Rect kOverTimeBounds{kFormMargin, kOkBounds.top, kOkBounds.width, kOkBounds.height};

constexpr Rect line(int top, int lines = 1) {
    return {kFormMargin, top, kWidth, lines * kLineHeight};
}

std::string nameToShow(const Database& database, int id) {
    const std::optional<Contact> contact = database.contact(id);
    return contact ? contact->name : "a deleted contact";
}

int barValue(std::int64_t weight) {
    return static_cast<int>(std::clamp<std::int64_t>(weight, 1, std::numeric_limits<int>::max()));
}

}  // namespace

DetailsForm::DetailsForm(Toolkit& toolkit)
    : window(toolkit.createWindow()),
      Label1(window->addLabel(line(150), "Relation details between")),
      part1Label(window->addLabel(line(450), "")),
      Label2(window->addLabel(line(710), "and")),
      part2Label(window->addLabel(line(970), "")),
      weightBar(window->addProgressBar(line(1330))),
      moreLabel(window->addLabel(line(1650, 2), "")),
      okButton(window->addButton(kOkBounds, "OK")),
      overTimeButton(window->addButton(kOverTimeBounds, "Over &time")) {
    window->setCaption("Relation details");
    window->setInnerSize(kInnerSize);
    window->setMinimumInnerSize(kInnerSize);
    okButton.onClick = [this] { window->hide(); };
    overTimeButton.onClick = [this] { openOverTime(firstId_, secondId_); };
}

void DetailsForm::fillInfo(int firstId, int secondId) {
    firstId_ = firstId;
    secondId_ = secondId;
    const std::optional<RelationDetails> details = relationDetails(*database, firstId, secondId);
    part1Label.setText(nameToShow(*database, firstId));
    part2Label.setText(nameToShow(*database, secondId));
    if (!details) {
        weightBar.setRange(1, 2);
        weightBar.setValue(1);
        moreLabel.setText("This relation is no longer in the database.");
        return;
    }
    weightBar.setRange(1, barValue(details->strongest));
    weightBar.setValue(barValue(details->weight));
    moreLabel.setText(details->sentence());
}

}  // namespace pelk
