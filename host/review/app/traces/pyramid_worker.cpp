// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/pyramid_worker.h"

#include <chrono>
#include <exception>
#include <new>
#include <system_error>
#include <utility>

namespace orvanta::review {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kBetweenCalls{100};

} // namespace

PyramidWorker::~PyramidWorker() {
    Stop();
}

void PyramidWorker::Stop() {
    thread_ = std::jthread(); // asks the former one to stop and waits for it
}

void PyramidWorker::Start(std::shared_ptr<Pyramid> pyramid) {
    Stop();
    SetFailure({});
    try {
        thread_ = std::jthread(
            [this, pyramid = std::move(pyramid)](const std::stop_token& stop) { Work(stop, *pyramid); });
    } catch (const std::system_error& error) {
        SetFailure(std::string("no thread for the overview: ") + error.what() +
                   " (close other programs and open the file again)");
    }
}

void PyramidWorker::Work(const std::stop_token& stop, Pyramid& pyramid) {
    auto last = Clock::now();
    std::string failure;
    try {
        const auto grown = [&] {
            if (const auto now = Clock::now(); now - last >= kBetweenCalls) {
                last = now;
                TellGrown();
            }
            std::this_thread::yield(); // the page on screen comes first
        };
        if (!pyramid.Build(stop, grown)) {
            return;
        }
    } catch (const std::bad_alloc&) {
        failure = "not enough memory for the overview (close other programs and open the file again)";
    } catch (const std::exception& error) {
        failure = error.what();
    }
    SetFailure(std::move(failure));
    TellGrown();
}

void PyramidWorker::TellGrown() {
    const std::lock_guard lock(grownMutex_);
    if (grown_) {
        grown_();
    }
}

void PyramidWorker::SetGrown(std::function<void()> grown) {
    const std::lock_guard lock(grownMutex_);
    grown_ = std::move(grown);
}

void PyramidWorker::SetFailure(std::string failure) {
    const std::lock_guard lock(failureMutex_);
    failure_ = std::move(failure);
}

std::string PyramidWorker::Failure() const {
    const std::lock_guard lock(failureMutex_);
    return failure_;
}

} // namespace orvanta::review
