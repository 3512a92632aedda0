// Measures how long the forms about time take to open on the largest database, with the e-mails of
// 20 years. Usage: time_speed FOLDER, which will hold a database.

#include <optional>

#include "bench/large_database.h"
#include "bench/measure.h"
#include "bench/opening.h"
#include "bench/random.h"
#include "bench/settled.h"
#include "bench/silent_dialogs.h"
#include "history/history_file.h"
#include "platform/desktop/qt/toolkit.h"
#include "views/LostSightForm.h"
#include "views/OverTimeForm.h"

namespace pelk {
namespace {

constexpr int kRounds = 5;
constexpr int kFirstYear = 2006;
constexpr int kYears = 20;
/// In milliseconds.
constexpr double kAtOnce = 300;
/// The contact with the most relations.
constexpr int kUser = 1;

Day randomDay(Random& random) {
    const auto number = [&random](std::size_t below) {
        return static_cast<int>(random.below(below));
    };
    return (kFirstYear + number(kYears)) * 10000 + (1 + number(12)) * 100 + 1 + number(28);
}

/// Returns 1.7 million e-mails between the contacts of the relations, on random days.
History makeHistory(const Database& database) {
    constexpr std::size_t kMost = 30;
    History history;
    Random random;
    for (const Relation& relation : database.relations()) {
        const std::string one = database.contact(relation.part1)->addresses.front();
        const std::string other = database.contact(relation.part2)->addresses.front();
        for (std::size_t mail = 0, mails = 1 + random.rank(kMost); mail < mails; ++mail)
            random.chance(0.5) ? history.countMail(one, other, randomDay(random))
                               : history.countMail(other, one, randomDay(random));
    }
    return history;
}

class TimeSpeed {
 public:
    explicit TimeSpeed(const std::string& folder)
        : store_(folder),
          toolkit_(dialogs_, store_.desktop.language()),
          database_(store_.storage.loadDatabase().database) {
        store_.storage.removeBeside(kCompanionName);
        readAgain();
        history_->addScan(makeHistory(*database_), {}, database_->date());
        store_.storage.saveDatabase(*database_);
    }

    void measureAll() {
        const auto overTime = [this] { open(overTime_, toolkit_); };
        const auto lostSight = [this] { open(lostSight_, toolkit_, store_.platform.clock); };
        measure("Over time, for the first time", {overTime, [this] { readAgain(); }});
        measure("Over time, of the best-connected contact", {overTime, {}});
        measure("Lost sight of, for the first time", {lostSight, [this] { readAgain(); }});
        measure("Lost sight of, by the best-connected contact", {lostSight, {}});
    }

 private:
    /// Makes the next use read the file of the history, as the first one of a program does.
    void readAgain() {
        history_.reset();
        giveMemoryBack();
        history_.emplace(store_.storage, store_.platform);
    }
    template <typename Form, typename... Arguments>
    void open(std::unique_ptr<Form>& form, Arguments&... arguments) {
        form = std::make_unique<Form>(arguments...);
        form->database = database_.get();
        form->history = [this]() -> const History& { return history_->history(); };
        form->fill(kUser);
        form->show();
        settle();
    }
    static void measure(const std::string& form, const Work& work) {
        print({form, "warm", medians(kRounds, {work})[0], "at once", kAtOnce, "ms", 1});
    }

    LargeStore store_;
    SilentDialogs dialogs_;
    QtToolkit toolkit_;
    std::optional<HistoryFile> history_;
    std::unique_ptr<Database> database_;
    std::unique_ptr<OverTimeForm> overTime_;
    std::unique_ptr<LostSightForm> lostSight_;
};

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    return pelk::measureWindows<pelk::TimeSpeed>(argc, argv, "time_speed");
}
