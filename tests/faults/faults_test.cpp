// The real program under failing calls: for every call of a kind that a command makes, one run in
// which that call fails. Whatever fails, the database is afterwards the old one or the new one, and
// the program has told which. `tests/faults/run --all` tries every call with every error; without,
// the calls lie ever farther apart.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <map>
#include <regex>

#include "tests/faults/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace pelk {
namespace {

struct Row {
    const char* name;
    int calls;
    std::vector<int> errors;
};

const std::vector<Row> kRows{{"stat", kStat, {EIO, EACCES}},
                             {"open", kOpen, {EIO, EACCES, EMFILE, ENOSPC, EINTR}},
                             {"read", kRead, {EIO, EINTR, kHalf}},
                             {"write", kWrite, {ENOSPC, EIO, EINTR, kHalf}},
                             {"fsync", kSync, {EIO, ENOSPC}},
                             {"close", kClose, {EIO, EINTR}},
                             {"rename", kRename, {EIO, EACCES, ENOSPC}},
                             {"mkdir", kMakeFolder, {ENOSPC, EACCES, EIO}},
                             {"flock", kLock, {EIO, EINTR, ENOLCK}},
                             {"thread", kThread, {EAGAIN}},
                             {"malloc", kMemory, {ENOMEM}},
                             {"any", kAnyFileCall, {kKill}}};

struct Act {
    const char* name;
    const char* arguments;
    /// Whether there is a database before.
    bool again = true;
    bool reads = false;
};

const Act kActs[] = {{"firstScan", "scan in/Inbox in/Letters", false},
                     {"scan", "scan in/Inbox in/Letters"},
                     {"load", "load in/other.xml"},
                     {"merge", "merge 1 2 --name Both"},
                     {"deleteDomain", "delete-domain b.example --yes"},
                     {"import", "import in/other.db"},
                     {"contacts", "contacts", true, true}};

constexpr const char* kMessage =
    "From: Ann <ann@a.example>\nTo: Bob <bob@b.example>, cy@c.example\nSubject: one\n\nHi\n\n";

std::string document(const std::string& name, const std::string& domain) {
    return "<pelkDB date='2020-01-01T00:00:00' totalMails='3' totalContacts='2' maxInd='50' "
           "minInd='5'><contacts><contact id='1' name='" +
           name + "'><emails><email value='ann@" + domain +
           "'/></emails></contact><contact id='2'><emails><email value='bob@b.example'/></emails>"
           "</contact></contacts><relations total='0'><relation part1='1' part2='2' weight='3'/>"
           "</relations></pelkDB>";
}

bool tryAll() {
    return std::getenv("PELK_FAULTS_ALL") != nullptr;
}

struct Outcome {
    /// The exit status; a signal's number with a minus.
    int status = 0;
    std::string output;
    std::string errors;
    /// Whether the planned fault came to pass.
    bool struck = false;
};

using Files = std::map<std::string, std::string>;

class Faults : public testing::TestWithParam<Act> {
 protected:
    void SetUp() override {
        files.write("in/Inbox", std::string("From a@x Tue Mar  4 09:12:00 2025\n") + kMessage +
                                    "From a@x Tue Mar  4 09:13:00 2025\n" + kMessage);
        files.write("in/Letters/letter.eml", kMessage);
        files.write("in/other.xml", document("Other", "d.example"));
        dumped[""] = withoutDate(run("dump").output);
        run("load in/other.xml");
        run("export in/other.db");
        std::filesystem::remove_all(files.path() + "/data");
        files.write("in/first.xml", document("Ann", "a.example"));
    }

    void startAnew(const Act& act) {
        std::filesystem::remove_all(files.path() + "/data");
        if (!act.again)
            return;
        if (first.empty()) {
            run("load in/first.xml");
            first = content();
        }
        for (const auto& [name, bytes] : first)
            files.write("data/pelk/" + name, bytes);
    }

    /// Runs the program; all its files lie in one folder, what it prints in another.
    Outcome run(const std::string& arguments, const std::string& plan = "") {
        int pipe[2];
        EXPECT_EQ(::pipe(pipe), 0);
        const std::string preload =
            plan.empty() ? ""
                         : std::string("LD_PRELOAD='" PELK_FAILING_CALLS "' ") + kFaultVariable +
                               "='" + plan + std::to_string(pipe[1]) + ' ' + files.path() + "' ";
        const std::string command =
            "ulimit -c 0; cd '" + files.path() +
            "' && exec env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " + preload +
            "'" PELK_PROGRAM "' --data '" + files.path() + "/data' " + arguments + " >'" + prints +
            "/out' 2>'" + prints + "/err' </dev/null";
        const pid_t child = ::fork();
        if (child == 0) {
            // A run that hangs ends by this signal.
            ::alarm(20);
            ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            ::_exit(127);
        }
        ::close(pipe[1]);
        Outcome result;
        int status = 0;
        ::waitpid(child, &status, 0);
        result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
        char mark;
        result.struck = ::read(pipe[0], &mark, 1) == 1;
        ::close(pipe[0]);
        result.output = contentOf(prints + "/out");
        result.errors = contentOf(prints + "/err");
        return result;
    }

    static std::string withoutDate(const std::string& xml) {
        return std::regex_replace(xml, std::regex(" date=\"[^\"]*\""), "");
    }

    static std::string contentOf(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    Files content() const {
        Files found;
        const std::string data = files.path() + "/data/pelk";
        if (std::filesystem::exists(data))
            for (const auto& entry : std::filesystem::directory_iterator(data))
                found[entry.path().filename().string()] = contentOf(entry.path());
        return found;
    }

    /// The database as text, without its date; the empty one if there is none.
    std::string dump() {
        const Files before = content();
        const auto file = before.find("pelk.db");
        if (file == before.end())
            return dumped[""];
        std::string& text = dumped[file->second];
        if (text.empty()) {
            const Outcome reader = run("dump");
            text = reader.status == 0 ? withoutDate(reader.output) : "unreadable";
        }
        return text;
    }

    TemporaryFolder files;
    TemporaryFolder printed;
    std::string prints = printed.path();
    Files first;
    /// By the content of the file.
    std::map<std::string, std::string> dumped;
};

/// What a command leaves behind when nothing fails, and before.
struct Expected {
    Files filesBefore;
    Files filesAfter;
    std::string before;
    std::string after;
    std::string output;
};

/// In which way a run breaks the rules; empty for none.
std::string lossOf(const Act& act, const Expected& expected, const Outcome& run, const Files& files,
                   const std::string& database) {
    const bool killed = run.status == -SIGKILL;
    if (run.status == -SIGALRM)
        return "hangs";
    if (run.status < 0 && !killed)
        return "crash by signal " + std::to_string(-run.status);
    // A scan counts what can be read, and tells what cannot.
    const bool incomplete = std::string(act.arguments).starts_with("scan") &&
                            run.errors.find("could not be read") != std::string::npos;
    if (database != expected.before && database != expected.after && !incomplete)
        return "neither the old database nor the new one";
    if (act.reads && files != expected.filesBefore)
        return "a reader changed files";
    for (const auto& [name, bytes] : files)
        if (!killed && !expected.filesBefore.contains(name) && !expected.filesAfter.contains(name))
            return "leaves " + name;
    if (killed)
        return "";
    if (run.status == 0 &&
        (act.reads ? run.output != expected.output : database == expected.before))
        return "silent: status 0 and nothing done";
    if (run.status == 0)
        return "";
    if (!act.reads && database == expected.after)
        return "reported as failed, and done";
    if (run.status != 1)
        return "status " + std::to_string(run.status);
    const bool oneLine = run.errors.starts_with("pelk: ") && run.errors.ends_with('\n') &&
                         std::count(run.errors.begin(), run.errors.end(), '\n') == 1;
    const bool clear = run.errors.find("std::") == std::string::npos &&
                       run.errors.find("Unexpected fault") == std::string::npos;
    return oneLine && clear ? "" : "no clear line: " + run.errors.substr(0, 80);
}

TEST_P(Faults, loseNothing) {
    const Act& act = GetParam();
    Expected expected;
    startAnew(act);
    expected.filesBefore = content();
    expected.before = dump();
    expected.output = run(act.arguments).output;
    expected.filesAfter = content();
    expected.after = dump();
    ASSERT_NE(expected.before, "unreadable");
    ASSERT_EQ(expected.before == expected.after, act.reads);

    for (const Row& row : kRows) {
        for (const int error : row.errors) {
            int trials = 0;
            std::map<std::string, std::vector<int>> losses;
            for (int at = 1;; at += tryAll() ? 1 : 1 + at / 8) {
                startAnew(act);
                const Outcome trial =
                    run(act.arguments, std::to_string(row.calls) + ' ' + std::to_string(at) + ' ' +
                                           std::to_string(error) + ' ');
                if (!trial.struck)
                    break;
                ++trials;
                const Files after = content();
                if (const std::string loss = lossOf(act, expected, trial, after, dump());
                    !loss.empty())
                    losses[loss].push_back(at);
            }
            std::size_t lost = 0;
            std::string classes;
            for (const auto& [loss, places] : losses) {
                lost += places.size();
                classes += "\n    " + std::to_string(places.size()) + " x " + loss +
                           ", first at call " + std::to_string(places.front());
            }
            const std::string name = error == kHalf   ? "half"
                                     : error == kKill ? "kill"
                                                      : ::strerrorname_np(error);
            std::cout << std::left << std::setw(14) << act.name << std::setw(8) << row.name
                      << std::setw(8) << name << std::right << std::setw(7) << trials
                      << std::setw(7) << lost << std::endl;
            EXPECT_EQ(lost, 0U) << act.name << ", " << row.name << ", " << name << classes;
            if (!tryAll())
                break;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Acts, Faults, testing::ValuesIn(kActs),
                         [](const auto& instance) { return instance.param.name; });

using Readers = Faults;

TEST_F(Readers, besideAWriterSeeTheOldOrTheNewDatabase) {
    startAnew(kActs[1]);
    std::vector<std::string> texts;
    for (const char* name : {"Ann", "Bea"}) {
        run(std::string("rename 1 ") + name);
        texts.push_back(run("dump").output);
    }
    const std::string goesOn = files.write("go-on", "");
    const pid_t writer = ::fork();
    if (writer == 0) {
        prints = files.path();
        for (int turn = 0; std::filesystem::exists(goesOn); ++turn)
            run(turn % 2 == 0 ? "rename 1 Ann" : "rename 1 Bea");
        ::_exit(0);
    }
    const int readers = tryAll() ? 1000 : 30;
    int losses = 0;
    for (int reader = 0; reader < readers; ++reader) {
        const Outcome result = run("dump");
        if (result.status != 0 || (result.output != texts[0] && result.output != texts[1]))
            ++losses;
    }
    std::filesystem::remove(goesOn);
    ::waitpid(writer, nullptr, 0);
    std::cout << "readers beside a writer: " << readers << " trials, " << losses << " losses\n";
    EXPECT_EQ(losses, 0);
}

}  // namespace
}  // namespace pelk
