// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/interrupts.h"

#include <csignal>
#include <initializer_list>

namespace orvanta::platform {

namespace {

volatile std::sig_atomic_t interrupted = 0;

extern "C" void TakeInterrupt(int) {
    interrupted = 1;
}

} // namespace

void CatchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = TakeInterrupt;
    // Reset by the first one, so that the second has the system's own effect.
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (const int signal : {SIGINT, SIGTERM}) {
        sigaction(signal, &action, nullptr);
    }
    std::signal(SIGXFSZ, SIG_IGN);
}

bool WasInterrupted() {
    return interrupted != 0;
}

} // namespace orvanta::platform
