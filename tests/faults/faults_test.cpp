// The real program under failing calls: for every call of a kind that a command makes, a run in
// which that call fails. Whatever fails, the database is afterwards the old one or the new one, and
// the program has told which. `tests/faults/run` tries every call with every error; without it each
// call fails in one way, and not all of many calls do.

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <map>
#include <optional>
#include <regex>
#include <sstream>

#include "tests/cli/cli_fixture.h"
#include "tests/faults/fault_plan.h"

namespace pelk {
namespace {

struct Kind {
    const char* name;
    std::vector<int> errors;
    /// The larger, the more of many calls are tried when not all are.
    int density = 100;
};

const std::vector<Kind> kKinds{
    {"stat", {EIO, EACCES}},           {"open", {EIO, EACCES, EMFILE, ENOSPC, EINTR}},
    {"read", {EIO, EINTR, kHalf}},     {"write", {ENOSPC, EIO, EINTR, kHalf}},
    {"fsync", {EIO, ENOSPC}},          {"close", {EIO, EINTR}},
    {"rename", {EIO, EACCES, ENOSPC}}, {"mkdir", {ENOSPC, EACCES, EIO}},
    {"flock", {EIO, EINTR, ENOLCK}},   {"thread", {EAGAIN}},
    {"malloc", {ENOMEM}, 4},           {"file", {kKill}, 8}};

std::string nameOf(int error) {
    return error == kHalf ? "half" : error == kKill ? "kill" : ::strerrorname_np(error);
}

struct Act {
    const char* name;
    std::string arguments;
    bool hasDatabase = true;
    bool reads = false;

    bool scans() const { return arguments.starts_with("scan"); }
    friend std::ostream& operator<<(std::ostream& out, const Act& act) { return out << act.name; }
};

const std::vector<Act> kActs{{"firstScan", "scan Inbox Letters", false},
                             {"scan", "scan Inbox Letters"},
                             {"load", "load other.xml"},
                             {"merge", "merge 1 2 --name Both"},
                             {"deleteDomain", "delete-domain b.example --yes"},
                             {"import", "import other.db"},
                             {"contacts", "contacts", true, true}};

std::string document(const std::string& name, const std::string& address) {
    return "<pelkDB date='2020-01-01T00:00:00' totalMails='3' totalContacts='2' maxInd='50' "
           "minInd='5'><contacts><contact id='1' name='" +
           name + "'><emails><email value='" + address +
           "'/></emails></contact><contact id='2'><emails><email value='bob@b.example'/></emails>"
           "</contact></contacts><relations total='0'><relation part1='1' part2='2' weight='3'/>"
           "</relations></pelkDB>";
}

/// The files in the folder of the database by name, and the content of the database.
struct State {
    std::map<std::string, std::string> files;
    std::string database;
};

class Faults : public CliTest, public testing::WithParamInterface<Act> {
 protected:
    const bool all = std::getenv("PELK_FAULTS_ALL") != nullptr;

    void SetUp() override {
        folder.write("Letters/letter.eml", kMail);
        empty_ = dump();
        loadFirst("Other", "ann@d.example");
        run("export other.db");
        std::filesystem::rename(folder.path() + "/first.xml", folder.path() + "/other.xml");
        std::filesystem::remove_all(data_);
        loadFirst("Ann", "ann@a.example");
        first_ = state();
    }

    void loadFirst(const std::string& name, const std::string& address) {
        folder.write("first.xml", document(name, address));
        run("load first.xml");
    }

    State state() {
        State found{{}, empty_};
        if (std::filesystem::exists(data_))
            for (const auto& entry : std::filesystem::directory_iterator(data_))
                found.files[entry.path().filename()] = contentOf(entry.path());
        if (const auto file = found.files.find("pelk.db"); file != found.files.end()) {
            std::string& known = dumps_[file->second];
            if (known.empty())
                known = dump();
            found.database = known;
        }
        return found;
    }

    /// The state after a successful run. If the history could not be given its name, it waits for
    /// it beside the saved database; the next command that may write makes up for that.
    State settledState() {
        State found = state();
        if (std::none_of(found.files.begin(), found.files.end(), [](const auto& file) {
                return file.first.starts_with("pelk-history.db.new-");
            }))
            return found;
        run("delete 999");
        return state();
    }

    /// Without the date, which tells when a scan ended.
    std::string dump() {
        const Outcome printed = run("dump");
        return printed.status != 0
                   ? "unreadable"
                   : std::regex_replace(printed.output, std::regex(" date=\"[^\"]*\""), "");
    }

    /// Runs the command on the database of the beginning.
    Outcome runAct(const Act& act, const std::string& before = "") {
        std::filesystem::remove_all(data_);
        if (act.hasDatabase)
            for (const auto& [name, bytes] : first_.files)
                folder.write("data/pelk/" + name, bytes);
        environment = before;
        Outcome outcome = run(act.arguments);
        environment.clear();
        return outcome;
    }

    /// The same with one failing call. None when there are not as many.
    std::optional<Outcome> strike(const Act& act, const char* kind, int at, int error) {
        std::ostringstream before;
        before << "timeout 20 env LD_PRELOAD=" PELK_FAILING_CALLS " " << kFaultVariable << "='"
               << kind << ' ' << at << ' ' << error << ' ' << folder.path() << "'";
        Outcome outcome = runAct(act, before.str());
        return std::filesystem::remove(folder.path() + '/' + kStruckName) ? std::optional(outcome)
                                                                          : std::nullopt;
    }

    const std::string data_ = folder.path() + "/data/pelk";
    State first_;
    std::string empty_;
    /// By the content of the file.
    std::map<std::string, std::string> dumps_;
};

/// The states before and after a command when nothing fails.
struct Expected {
    State before;
    State after;
    std::string output;
};

/// A file that nobody expects, or one that is neither the old nor the new one; empty for none.
std::string strangeFile(const Act& act, const Expected& expected, const State& found, bool killed) {
    for (const auto& file : found.files) {
        const std::string& name = file.first;
        const std::string& bytes = file.second;
        const auto holds = [&](const State& state) { return state.files.contains(name); };
        const auto same = [&](const State& state) {
            return holds(state) && (act.scans() || state.files.at(name) == bytes);
        };
        const bool known = holds(expected.before) || holds(expected.after);
        if (known ? !same(expected.before) && !same(expected.after) : !killed)
            return name;
    }
    return "";
}

/// In which way a run breaks the rules; empty for none.
std::string lossOf(const Act& act, const Expected& expected, const Outcome& run,
                   const State& found) {
    const bool killed = run.status == 128 + SIGKILL;
    if (run.status > 2 && !killed)
        return run.status == 124 ? "hangs" : "crash, status " + std::to_string(run.status);
    // A scan counts what can be read, and tells what cannot.
    const bool incomplete = act.scans() && found.database != "unreadable" &&
                            run.errors.find("could not be read") != std::string::npos;
    const bool done = found.database == expected.after.database;
    if (!done && !incomplete && found.database != expected.before.database)
        return "neither the old database nor the new one";
    if (act.reads && found.files != expected.before.files)
        return "a reader changed files";
    if (const std::string name = strangeFile(act, expected, found, killed); !name.empty())
        return "leaves " + name;
    if (killed)
        return "";
    if (run.status == 0)
        return act.reads            ? (run.output == expected.output ? "" : "silent: other output")
               : done || incomplete ? ""
                                    : "silent: nothing done";
    if (done && !act.reads)
        return "reported as failed, and done";
    const bool clear = run.status == 1 && run.errors.starts_with("pelk: ") &&
                       run.errors.find('\n') == run.errors.size() - 1 &&
                       run.errors.find("std::") == std::string::npos &&
                       run.errors.find("Unexpected error") == std::string::npos;
    return clear ? "" : "no clear line: " + run.errors.substr(0, run.errors.find('\n'));
}

TEST_P(Faults, loseNothing) {
    const Act& act = GetParam();
    Expected expected{act.hasDatabase ? first_ : State{{}, empty_}, {}, runAct(act).output};
    expected.after = state();
    ASSERT_EQ(expected.before.database == expected.after.database, act.reads);
    for (const Kind& kind : kKinds)
        for (std::size_t way = 0; way < (all ? kind.errors.size() : 1); ++way) {
            int trials = 0;
            int losses = 0;
            std::ostringstream row;
            row << act.name << ' ' << kind.name << ' ' << nameOf(kind.errors[way]);
            for (int at = 1; const auto outcome = strike(act, kind.name, at, kind.errors[way]);
                 at += all ? 1 : 1 + at / kind.density) {
                ++trials;
                const std::string loss = lossOf(act, expected, *outcome,
                                                outcome->status == 0 ? settledState() : state());
                losses += loss.empty() ? 0 : 1;
                EXPECT_EQ(loss, "") << row.str() << ", call " << at;
            }
            std::cout << row.str() << ": " << trials << " trials, " << losses << " losses"
                      << std::endl;
        }
}

INSTANTIATE_TEST_SUITE_P(Acts, Faults, testing::ValuesIn(kActs),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace pelk
