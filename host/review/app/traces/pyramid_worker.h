// SPDX-License-Identifier: GPL-3.0-or-later
// A pyramid being built in the background.
#pragma once

#include "host/review/app/traces/pyramid.h"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace orvanta::review {

/// Builds one pyramid after another on a thread of its own. All calls from one thread.
class PyramidWorker {
public:
    PyramidWorker() = default;
    ~PyramidWorker();
    PyramidWorker(const PyramidWorker&) = delete;
    PyramidWorker& operator=(const PyramidWorker&) = delete;

    /// Gives up the pyramid under way, if any, and begins with this one.
    void Start(std::shared_ptr<Pyramid> pyramid);
    /// Gives up the pyramid under way; waits for the thread, a few milliseconds.
    void Stop();
    /// Why the last pyramid was given up by itself, in one line; empty when it was not.
    std::string Failure() const;
    /// Called on the thread in the background, at most ten times a second, and at the end. It must not wait
    /// for the thread that calls this; after it was replaced the former one is called no more.
    void SetGrown(std::function<void()> grown);

private:
    void Work(const std::stop_token& stop, Pyramid& pyramid);
    void TellGrown();
    void SetFailure(std::string failure);

    mutable std::mutex failureMutex_;
    std::string failure_;
    std::mutex grownMutex_; ///< held during a call
    std::function<void()> grown_;
    std::jthread thread_;
};

} // namespace orvanta::review
