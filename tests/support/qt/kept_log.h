// SPDX-License-Identifier: GPL-3.0-or-later
// What a program logs.
#pragma once

#include <string>
#include <vector>

namespace orvanta::test {

/// Keeps the messages that are logged while it lives, warnings too, which do not fail the test then. One at a
/// time.
class KeptLog final {
public:
    KeptLog();
    ~KeptLog();
    KeptLog(const KeptLog&) = delete;
    KeptLog& operator=(const KeptLog&) = delete;

    /// In order; once no other thread logs.
    const std::vector<std::string>& Lines() const;
    /// Empty when nothing was logged.
    std::string Last() const { return Lines().empty() ? std::string() : Lines().back(); }
};

} // namespace orvanta::test
