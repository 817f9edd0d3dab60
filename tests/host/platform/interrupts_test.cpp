// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/interrupts.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <thread>

namespace orvanta::platform {
namespace {

TEST(Interrupts, AreNoneBeforeTheFirst) {
    EXPECT_FALSE(WasInterrupted());
}

TEST(Interrupts, TheFirstIsRemembered) {
    const auto interrupt = [] {
        CatchInterrupts();
        std::raise(SIGINT);
        std::exit(WasInterrupted() ? 7 : 1);
    };
    EXPECT_EXIT(interrupt(), testing::ExitedWithCode(7), "");
}

TEST(Interrupts, AreSeenWhicheverThreadTheyMeet) {
    const auto interrupt = [] {
        CatchInterrupts();
        std::jthread other([] { std::raise(SIGINT); });
        while (!WasInterrupted()) {
            std::this_thread::yield();
        }
        other.join();
        std::exit(7);
    };
    EXPECT_EXIT(interrupt(), testing::ExitedWithCode(7), "");
}

TEST(Interrupts, TheSecondEndsTheProgram) {
    const auto interrupt = [] {
        CatchInterrupts();
        std::raise(SIGINT);
        std::raise(SIGINT);
        std::exit(1);
    };
    EXPECT_EXIT(interrupt(), testing::KilledBySignal(SIGINT), "");
}

} // namespace
} // namespace orvanta::platform
