// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/review/app/monkey/journal.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include <unistd.h>

/// Of the sanitizers' runtime; null without one.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)()); // NOLINT

namespace orvanta::test {

namespace {

constexpr std::size_t kLines = 40;
constexpr std::size_t kLength = 160;
constexpr std::chrono::duration<double> kLong(3); // which a user would notice
constexpr int kSignals[] = {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGILL};

// Read by signal handlers: fixed memory, nothing allocated.
std::array<std::array<char, kLength>, kLines> lines;
std::array<char, kLength> heading;
std::atomic<std::uint64_t> noted = 0;

void Keep(std::array<char, kLength>& line, const std::string& text) {
    const std::size_t length = std::min(text.size(), kLength - 2);
    std::memcpy(line.data(), text.data(), length);
    line[length] = '\n';
    line[length + 1] = '\0';
}

/// Calls \p use with the lines in their order.
template <typename Use>
void ForLines(Use use) {
    use(heading.data());
    const std::uint64_t end = noted;
    for (std::uint64_t i = end > kLines ? end - kLines : 0; i < end; ++i) {
        use(lines[i % kLines].data());
    }
}

void Print() {
    ForLines([](const char* line) {
        [[maybe_unused]] const auto written = write(STDERR_FILENO, line, std::strlen(line));
    });
}

void PrintAndDie(int signal) {
    Print();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

} // namespace

Journal::Journal(const std::string& heading_) {
    Keep(heading, heading_);
    noted = 0;
    if (__sanitizer_set_death_callback != nullptr) {
        __sanitizer_set_death_callback(Print); // which has handlers of its own
    } else {
        for (const int signal : kSignals) {
            std::signal(signal, PrintAndDie);
        }
    }
    watch_ = std::thread([this] { Watch(); });
}

Journal::~Journal() {
    {
        const std::scoped_lock lock(mutex_);
        end_ = true;
    }
    ended_.notify_one();
    watch_.join();
    if (__sanitizer_set_death_callback != nullptr) {
        __sanitizer_set_death_callback(nullptr);
    } else {
        for (const int signal : kSignals) {
            std::signal(signal, SIG_DFL);
        }
    }
}

void Journal::Note(const std::string& event) {
    const auto now = std::chrono::steady_clock::now();
    const std::chrono::duration<double> took = now - last_;
    last_ = now;
    if (noted > 0 && took > kLong) {
        std::cerr << "took " << took.count() << " s: " << lines[(noted - 1) % kLines].data();
    }
    Keep(lines[noted % kLines], std::to_string(noted) + ": " + event);
    ++noted;
}

std::string Journal::Text() const {
    std::string text;
    ForLines([&text](const char* line) { text += line; });
    return text;
}

void Journal::Watch() {
    std::uint64_t seen = noted;
    std::unique_lock lock(mutex_);
    while (!ended_.wait_for(lock, std::chrono::seconds(kPatience), [this] { return end_; })) {
        if (seen == noted) {
            Keep(heading, std::string(heading.data(), std::strcspn(heading.data(), "\n")) + ": STANDS STILL");
            Print();
            std::abort();
        }
        seen = noted;
    }
}

} // namespace orvanta::test
