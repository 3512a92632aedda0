// The real program under failing calls: for every call of a kind that a command makes, a run in
// which that call fails. Whatever fails, the database is afterwards the old one or the new one, and
// the program has told which. `tests/faults/run` tries every call with every error; without it each
// call fails in one way, and not all of many calls do.

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <map>
#include <regex>
#include <thread>

#include "tests/cli/cli_fixture.h"
#include "tests/faults/fault_plan.h"

namespace pelk {
namespace {

struct Kind {
    const char* name;
    int calls;
    std::vector<int> errors;
    /// The larger, the more of many calls are tried when not all are.
    int density = 100;
};

const std::vector<Kind> kKinds{{"stat", kStat, {EIO, EACCES}},
                               {"open", kOpen, {EIO, EACCES, EMFILE, ENOSPC, EINTR}},
                               {"read", kRead, {EIO, EINTR, kHalf}},
                               {"write", kWrite, {ENOSPC, EIO, EINTR, kHalf}},
                               {"fsync", kSync, {EIO, ENOSPC}},
                               {"close", kClose, {EIO, EINTR}},
                               {"rename", kRename, {EIO, EACCES, ENOSPC}},
                               {"mkdir", kMakeFolder, {ENOSPC, EACCES, EIO}},
                               {"flock", kLock, {EIO, EINTR, ENOLCK}},
                               {"thread", kThread, {EAGAIN}},
                               {"malloc", kMemory, {ENOMEM}, 4},
                               {"any", kAnyFileCall, {kKill}, 8}};

std::string nameOf(int error) {
    return error == kHalf ? "half" : error == kKill ? "kill" : ::strerrorname_np(error);
}

struct Act {
    const char* name;
    std::string arguments;
    bool hasDatabase = true;
    bool reads = false;

    bool scans() const { return arguments.starts_with("scan"); }
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

/// What stands in the folder of the database, by name, and what the database holds.
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
        std::filesystem::remove_all(folder.path() + "/data");
        loadFirst("Ann", "ann@a.example");
        first_ = state();
    }

    void loadFirst(const std::string& name, const std::string& address) {
        folder.write("first.xml", document(name, address));
        run("load first.xml");
    }

    State state() {
        State found;
        const std::string data = folder.path() + "/data/pelk";
        if (std::filesystem::exists(data))
            for (const auto& entry : std::filesystem::directory_iterator(data))
                found.files[entry.path().filename()] = contentOf(entry.path());
        const auto file = found.files.find("pelk.db");
        if (file == found.files.end()) {
            found.database = empty_;
            return found;
        }
        std::string& known = dumps_[file->second];
        if (known.empty())
            known = dump();
        found.database = known;
        return found;
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
        std::filesystem::remove_all(folder.path() + "/data");
        if (act.hasDatabase)
            for (const auto& [name, bytes] : first_.files)
                folder.write("data/pelk/" + name, bytes);
        environment = before;
        Outcome outcome = run(act.arguments);
        environment.clear();
        return outcome;
    }

    /// The same with one failing call. Returns false when there are not as many.
    bool strike(const Act& act, int calls, int at, int error, Outcome& outcome) {
        const std::string plan = std::to_string(calls) + ' ' + std::to_string(at) + ' ' +
                                 std::to_string(error) + ' ' + folder.path();
        outcome = runAct(act, std::string("timeout 20 env LD_PRELOAD=" PELK_FAILING_CALLS " ") +
                                  kFaultVariable + "='" + plan + "'");
        return std::filesystem::remove(folder.path() + '/' + kStruckName);
    }

    State first_;
    std::string empty_;
    /// By the content of the file.
    std::map<std::string, std::string> dumps_;
};

/// What a command finds and leaves behind when nothing fails.
struct Expected {
    State before;
    State after;
    std::string output;
};

/// A file that nobody expects, or one that is neither the old nor the new one; empty for none.
std::string strangeFile(const Act& act, const Expected& expected, const State& found, bool killed) {
    for (const auto& [name, bytes] : found.files) {
        bool known = false;
        bool whole = false;
        for (const State* state : {&expected.before, &expected.after})
            if (const auto file = state->files.find(name); file != state->files.end()) {
                known = true;
                whole |= file->second == bytes || act.scans();
            }
        if (known ? !whole : !killed)
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
                       run.errors.find("Unexpected fault") == std::string::npos;
    return clear ? "" : "no clear line: " + run.errors.substr(0, run.errors.find('\n'));
}

TEST_P(Faults, loseNothing) {
    const Act& act = GetParam();
    Expected expected;
    expected.before = act.hasDatabase ? first_ : State{{}, empty_};
    expected.output = runAct(act).output;
    expected.after = state();
    ASSERT_EQ(expected.before.database == expected.after.database, act.reads);
    for (const Kind& kind : kKinds) {
        for (std::size_t way = 0; way < (all ? kind.errors.size() : 1); ++way) {
            int trials = 0;
            std::map<std::string, std::vector<int>> losses;
            Outcome outcome;
            for (int at = 1; strike(act, kind.calls, at, kind.errors[way], outcome);
                 at += all ? 1 : 1 + at / kind.density) {
                ++trials;
                const std::string loss = lossOf(act, expected, outcome, state());
                if (!loss.empty())
                    losses[loss].push_back(at);
            }
            std::string told;
            std::size_t lost = 0;
            for (const auto& [loss, calls] : losses) {
                lost += calls.size();
                told += "\n  " + std::to_string(calls.size()) + " x " + loss + ", first at call " +
                        std::to_string(calls.front());
            }
            const std::string row =
                std::string(act.name) + ' ' + kind.name + ' ' + nameOf(kind.errors[way]);
            std::cout << row << ": " << trials << " trials, " << lost << " losses" << std::endl;
            EXPECT_TRUE(losses.empty()) << row << told;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Acts, Faults, testing::ValuesIn(kActs),
                         [](const auto& instance) { return instance.param.name; });

using Readers = Faults;

TEST_F(Readers, seeTheOldOrTheNewDatabaseBesideAWriter) {
    std::vector<std::string> texts;
    for (const char* name : {"Bea", "Ann"}) {
        run(std::string("rename 1 ") + name);
        texts.push_back(dump());
    }
    // The writer ends when the file is gone.
    const std::string goOn = folder.write("go-on", "");
    std::thread writer([this, &goOn] {
        const std::string rename =
            "cd " + folder.path() + " && " PELK_PROGRAM " --data data rename 1 ";
        while (std::filesystem::exists(goOn))
            for (const char* name : {"Bea", "Ann"})
                EXPECT_EQ(std::system((rename + name + " >written").c_str()), 0);
    });
    const int readers = all ? 1000 : 30;
    int losses = 0;
    for (int reader = 0; reader < readers; ++reader)
        losses += std::find(texts.begin(), texts.end(), dump()) == texts.end() ? 1 : 0;
    std::filesystem::remove(goOn);
    writer.join();
    std::cout << "readers: " << readers << " trials, " << losses << " losses" << std::endl;
    EXPECT_EQ(losses, 0);
}

}  // namespace
}  // namespace pelk
