#include "views/OverTimeForm.h"

#include <utility>

#include "views/deletion_text.h"
#include "views/relation_totals.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{9600, 5400};
constexpr int kWidth = kInnerSize.width - 2 * kFormMargin;
constexpr int kLineHeight = 260;
constexpr int kRadioTop = 1330;
constexpr int kChartTop = 1750;
constexpr int kChartHeight = kInnerSize.height - kChartTop - 2 * kFormMargin - kFormButton.height;
constexpr int kTableWidth = 2900;
constexpr int kChartWidth = kWidth - kFormMargin - kTableWidth;

constexpr Rect line(int number) {
    return {kFormMargin, kFormMargin + number * kLineHeight, kWidth, kLineHeight};
}

constexpr Rect radio(int number) {
    return {kFormMargin + number * 1500, kRadioTop, 1400, kLineHeight};
}

std::string rowOf(const PeriodCount& count) {
    return count.label + ": " + std::to_string(count.sent) + " sent, " +
           std::to_string(count.received) + " received";
}

/// Returns the label below the bars of a period. Many months are labelled by their years, the first
/// one only if the label of the next year is not near.
std::string barLabel(const std::string& period, bool many, bool isFirst) {
    constexpr std::size_t kYearSize = 4;
    if (!many)
        return period;
    const std::string month = period.substr(kYearSize);
    return month == "-01" || (isFirst && month < "-07") ? period.substr(0, kYearSize) : "";
}

}  // namespace

OverTimeForm::OverTimeForm(Toolkit& toolkit)
    : window(toolkit.createWindow()),
      titleLabel(window->addLabel({}, "")),
      daysLabel(window->addLabel({}, "")),
      sentLabel(window->addLabel({}, "")),
      receivedLabel(window->addLabel({}, "")),
      yearRadio(window->addOptionButton({}, "By &year")),
      monthRadio(window->addOptionButton({}, "By &month")),
      chart(window->addBarChart({})),
      table(window->addListView({})),
      okButton(window->addButton({}, "OK")),
      layout_(*window, kInnerSize) {
    window->setCaption("E-mails over time");
    place();
    yearRadio.setChecked(true);
    yearRadio.onClick = [this] { choose(Period::Yearly); };
    monthRadio.onClick = [this] { choose(Period::Monthly); };
    okButton.onClick = [this] { window->hide(); };
}

void OverTimeForm::place() {
    layout_.add(titleLabel, line(0), kAnchorTop);
    layout_.add(daysLabel, line(1), kAnchorTop);
    layout_.add(sentLabel, line(2), kAnchorTop);
    layout_.add(receivedLabel, line(3), kAnchorTop);
    yearRadio.setBounds(radio(0));
    monthRadio.setBounds(radio(1));
    layout_.add(chart, {kFormMargin, kChartTop, kChartWidth, kChartHeight}, kAnchorFill);
    layout_.add(
        table, {kInnerSize.width - kFormMargin - kTableWidth, kChartTop, kTableWidth, kChartHeight},
        {1, 0, 0, 1});
    layout_.add(okButton, bottomButton(kInnerSize, 1), kAnchorBottomRight);
}

void OverTimeForm::fill(int contactId, int otherId) {
    contactId_ = contactId;
    otherId_ = otherId;
    const bool isPair = otherId != kAllOthers;
    exchange_ = isPair ? exchangeOf(*database, history(), contactId, otherId)
                       : exchangeOf(*database, history(), contactId);
    titleLabel.setText(isPair ? nameShown(contactId) + " and " + nameShown(otherId)
                              : nameShown(contactId) + " and all others");
    showTotals();
    showPeriods();
}

void OverTimeForm::showTotals() {
    const auto total = [](const std::string& direction, std::uint64_t mails) {
        return direction + ": " + counted(static_cast<std::int64_t>(mails), "e-mail");
    };
    std::string days = history().empty() ? "The history begins with the next scan."
                                         : "The history knows no e-mail between them.";
    std::string sent;
    std::string received;
    if (!exchange_.empty()) {
        days = "First e-mail: " + dayText(exchange_.first) +
               ". Last e-mail: " + dayText(exchange_.last) + ".";
        sent = total(direction(contactId_, otherId_), exchange_.sent());
        received = total(direction(otherId_, contactId_), exchange_.received());
    }
    daysLabel.setText(days);
    sentLabel.setText(sent);
    receivedLabel.setText(received);
    description_ = days + " " + sent + ". " + received + ".";
}

void OverTimeForm::choose(Period period) {
    period_ = period;
    showPeriods();
}

void OverTimeForm::showPeriods() {
    constexpr std::size_t kMostMonthLabels = 18;
    const std::vector<PeriodCount> periods = periodsOf(exchange_, period_);
    const bool many = period_ == Period::Monthly && periods.size() > kMostMonthLabels;
    ChartContent content{direction(contactId_, otherId_), direction(otherId_, contactId_), {}, ""};
    while (!table.rows().empty())
        table.removeRow(table.rows().size() - 1);
    for (const PeriodCount& count : periods) {
        table.addRow({rowOf(count), ""});
        content.bars.push_back(
            {barLabel(count.label, many, content.bars.empty()), count.sent, count.received});
    }
    content.description = description_;
    chart.setContent(std::move(content));
}

std::string OverTimeForm::nameShown(int id) const {
    return database->contact(id) ? nameForUser(*database, id) : "a deleted contact";
}

std::string OverTimeForm::direction(int fromId, int toId) const {
    const auto name = [this](int id) {
        return id == kAllOthers ? std::string("others") : nameShown(id);
    };
    return "From " + name(fromId) + " to " + name(toId);
}

}  // namespace pelk
