#include "apps/cli/password_command.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "platform/error.h"

namespace pelk {
namespace {

/// The maximum number of bytes to read, far above any password or token.
constexpr std::size_t kMostOutput = 64UL << 10;

/// Reads to the end or the limit. Bypasses stdio, whose buffer would keep a copy.
std::string readOutput(int descriptor) {
    std::string output(kMostOutput, '\0');
    std::size_t length = 0;
    while (length < output.size()) {
        const ssize_t count = ::read(descriptor, output.data() + length, output.size() - length);
        if (count == 0 || (count < 0 && errno != EINTR))
            break;
        length += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    output.resize(length);
    return output;
}

std::string quotedForShell(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text)
        quoted += c == '\'' ? "'\\''" : std::string(1, c);
    return quoted + "'";
}

void requireDone(int status) {
    const std::string name = "The password command";
    if (WIFSIGNALED(status))
        throw Error(name + " was ended by signal " + std::to_string(WTERMSIG(status)) + ".");
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw Error(name + " failed with exit status " +
                    std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : status) + ".");
}

}  // namespace

std::string runPasswordCommand(const std::string& command, const std::string& url) {
    const std::string whole = "export PELK_SERVER=" + quotedForShell(url) + "\n" + command;
    std::FILE* const pipe = ::popen(whole.c_str(), "re");
    if (pipe == nullptr)
        throw Error("The password command cannot be run.");
    std::string output = readOutput(::fileno(pipe));
    requireDone(::pclose(pipe));
    output.resize(std::min(output.find('\n'), output.size()));
    if (output.ends_with('\r'))
        output.pop_back();
    if (output.empty())
        throw Error("The password command prints no password.");
    return output;
}

}  // namespace pelk
