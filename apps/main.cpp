// The program `pelk`: the mail window on a desktop, and the commands.

#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <vector>

#include "addin/product.h"
#include "apps/cli/arguments.h"
#include "apps/cli/commands.h"
#include "apps/cli/terminal_text.h"
#include "apps/desktop/desktop_program.h"
#include "platform/error.h"

namespace pelk {
namespace {

enum ExitStatus { kDone = 0, kFailed = 1, kWrongUsage = 2 };

bool hasDisplay() {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* const value = std::getenv(variable);
        if (value != nullptr && *value != '\0')
            return true;
    }
    return false;
}

void openWindow(const Arguments& arguments, int argc, char** argv) {
    if (hasDisplay()) {
        runDesktopProgram(arguments, argc, argv);
        return;
    }
    if (arguments.operands.empty())
        throw UsageError("the mail to open is missing");
    tell("There is no display for the mail window, so the result is printed here.");
    runWithoutDisplay(arguments);
}

void run(const Arguments& arguments, int argc, char** argv) {
    if (arguments.help)
        std::cout << kHelp;
    else if (arguments.version)
        std::cout << kProductName << ' ' << kProductVersion << '\n';
    else if (arguments.command == nullptr)
        openWindow(arguments, argc, argv);
    else
        runCommand(arguments);
    if (!std::cout.flush())
        throw Error("Standard output cannot be written.");
}

int guardedMain(int argc, char** argv) {
    try {
        run(parseArguments({argv + 1, argv + argc}), argc, argv);
        return kDone;
    } catch (const UsageError& error) {
        tell(std::string(error.what()) + "; see pelk --help");
        return kWrongUsage;
    } catch (const Error& error) {
        tell(error.what());
    } catch (const std::bad_alloc&) {
        std::cerr << "pelk: " << kNotEnoughMemory << '\n';
    } catch (const std::exception& fault) {
        tell(std::string("Unexpected error: ") + fault.what());
    }
    return kFailed;
}

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    return pelk::guardedMain(argc, argv);
}
