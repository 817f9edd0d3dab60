// SPDX-License-Identifier: GPL-3.0-or-later
// A disk without room.
#pragma once

#include <csignal>
#include <gtest/gtest.h>

#include <sys/resource.h>

namespace orvanta::test {

/// While it lives, files of this process end after so many bytes, as on a disk that is full.
class FileLimit {
public:
    explicit FileLimit(rlim_t bytes) : earlierAction_(std::signal(SIGXFSZ, SIG_IGN)) {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &earlier_), 0);
        const rlimit limit{bytes, earlier_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~FileLimit() {
        setrlimit(RLIMIT_FSIZE, &earlier_);
        std::signal(SIGXFSZ, earlierAction_);
    }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;

private:
    rlimit earlier_{};
    void (*earlierAction_)(int);
};

} // namespace orvanta::test
