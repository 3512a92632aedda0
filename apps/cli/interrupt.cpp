#include "apps/cli/interrupt.h"

namespace pelk {
namespace {

volatile std::sig_atomic_t interruptSeen = 0;

void noteInterrupt(int) {
    interruptSeen = 1;
}

}  // namespace

InterruptWatch::InterruptWatch() {
    interruptSeen = 0;
    struct sigaction once {};
    once.sa_handler = noteInterrupt;
    once.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
    ::sigaction(SIGINT, &once, &before_);
}

InterruptWatch::~InterruptWatch() {
    ::sigaction(SIGINT, &before_, nullptr);
}

bool InterruptWatch::interrupted() const {
    return interruptSeen != 0;
}

}  // namespace pelk
