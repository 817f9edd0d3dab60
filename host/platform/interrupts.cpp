// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/interrupts.h"

#include <atomic>
#include <csignal>
#include <initializer_list>

namespace orvanta::platform {

namespace {

/// Any thread may be the one that the system interrupts.
std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free); // else no handler may touch it

extern "C" void TakeInterrupt(int) {
    interrupted = true;
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
    return interrupted;
}

} // namespace orvanta::platform
