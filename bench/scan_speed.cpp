// Compares the speed of a scan with minimal work on the same mail, a script and a mail indexer.
// Usage: scan_speed FOLDER, with the mail that ./bench-all writes there.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/gmime_loop.h"
#include "bench/measure.h"
#include "bench/scan_mail.h"

namespace pelk {
namespace {

void scanAnew(const std::string& path) {
    scanMail(*makeEmptyDatabase(), path);
}

void run(const std::string& command) {
    if (std::system((command + " >/dev/null 2>&1").c_str()) != 0) {
        std::fprintf(stderr, "failed: %s\n", command.c_str());
        std::exit(1);
    }
}

void compareMbox(const std::string& path, const char* cache, int rounds) {
    const std::function<void()> forget = [&] {
        if (cache == std::string("cold"))
            forgetCached(path);
    };
    const auto times =
        medians(rounds, {{[&] { scanAnew(path); }, forget}, {[&] { decodeMbox(path); }, forget}});
    print({"Scan of 100,000 messages in an mbox", cache, times[0], "splitting and GMime's decoders",
           times[1], "ms", 1.5});
}

void compareMaildir(const std::string& path, const char* cache, int rounds) {
    const std::function<void()> forget = [&] {
        if (cache == std::string("cold"))
            forgetCached(path);
    };
    const std::string files = path + "/cur";
    const auto times = medians(rounds, {{[&] { scanAnew(path); }, forget},
                                        {[&] { readFiles(files); }, forget},
                                        {[&] { decodeFiles(files); }, forget}});
    print({"Scan of 10,000 messages in a Maildir", cache, times[0], "a loop that reads the files",
           times[1], "ms", 1.5});
    print({"The same", cache, times[0], "that loop with GMime's decoders", times[2], "ms", 0});
}

void compareProgram(const std::string& mbox, const std::string& name, const std::string& command,
                    const Work& work, double limit) {
    const std::string question = "The same";
    if (!isInstalled(command))
        return printSkipped(question, command + " is not installed");
    const auto times = medians(3, {{[&] { scanAnew(mbox); }}, work});
    print({question, "warm", times[0], name, times[1], "ms", limit});
}

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "scan_speed FOLDER\n");
        return 2;
    }
    const std::string folder = argv[1];
    const std::string mbox = folder + "/large.mbox";
    const std::string maildir = folder + "/maildir";
    pelk::compareMbox(mbox, "warm", 5);
    pelk::compareMbox(mbox, "cold", 3);
    for (const std::string way : {"search", "parser"})
        pelk::compareProgram(
            mbox, "Python, headers alone, " + way, "python3",
            {[&] { pelk::run("python3 " PELK_BENCH_SCRIPT " " + way + ' ' + mbox); }}, 1.0 / 15);
    const std::string index = folder + "/mu";
    pelk::compareProgram(mbox, "mu index of as many in a Maildir (bodies, too)", "mu",
                         {[&] { pelk::run("mu index --muhome=" + index); },
                          [&] {
                              pelk::run("rm -rf " + index + " && mu init --muhome=" + index +
                                        " --maildir=" + folder + "/large.maildir");
                          }},
                         1.0 / 50);
    pelk::compareMaildir(maildir, "warm", 7);
    pelk::compareMaildir(maildir, "cold", 3);
}
