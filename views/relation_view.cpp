#include "views/relation_view.h"

#include "views/relation_totals.h"

namespace pelk {

bool RelationView::shows(double weight) const {
    const Strength strength = strengthOf(roundToInteger(weight), strongest_, thresholds_);
    switch (choice_.filter) {
        case RelationFilter::Strong:
            return strength == Strength::Strong;
        case RelationFilter::MediumAndStrong:
            return strength != Strength::Weak;
        case RelationFilter::All:
            break;
    }
    return true;
}

bool RelationView::showsContact(int id) const {
    if (hides(id))
        return false;
    if (choice_.filter == RelationFilter::All)
        return true;
    const RelationTotals totals = totalsOf(database_, id);
    return totals.relations > 0 && shows(static_cast<double>(totals.strongest));
}

std::int64_t RelationView::rankOf(double weight) const {
    if (choice_.order == RelationOrder::ByName)
        return 0;
    const std::int64_t mails = roundToInteger(weight);
    return choice_.order == RelationOrder::ByMails
               ? mails
               : -static_cast<std::int64_t>(strengthOf(mails, strongest_, thresholds_));
}

std::int64_t RelationView::rankOfContact(int id) const {
    if (isByName())
        return 0;
    const RelationTotals totals = totalsOf(database_, id);
    return rankOf(static_cast<double>(choice_.order == RelationOrder::ByMails ? totals.mails
                                                                              : totals.strongest));
}

}  // namespace pelk
