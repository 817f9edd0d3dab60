// SPDX-License-Identifier: GPL-3.0-or-later
// What happened last, for when something goes wrong.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

namespace orvanta::test {

/// Keeps the last events and writes them to standard error when the program crashes, is ended by a sanitizer,
/// or when none has ended for kPatience: then the program is ended, too. One at a time.
class Journal final {
public:
    static constexpr int kPatience = 120; ///< seconds

    /// \param heading tells how to have the same again
    explicit Journal(const std::string& heading);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// Tells on standard error when more than three seconds have passed since the event before.
    void Note(const std::string& event);
    /// Heading and last events, a line each.
    std::string Text() const;

private:
    void Watch();

    std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
    std::mutex mutex_;
    std::condition_variable ended_;
    bool end_ = false;
    std::thread watch_;
};

} // namespace orvanta::test
