// SPDX-License-Identifier: GPL-3.0-or-later
// A user's numerals with a comma.
#pragma once

#include <string>

namespace orvanta::test {

/// While it lives, LC_NUMERIC is a locale with "," as decimal sign. A locale that cannot be had fails the
/// test.
class CommaNumerals {
public:
    CommaNumerals();
    ~CommaNumerals();
    CommaNumerals(const CommaNumerals&) = delete;
    CommaNumerals& operator=(const CommaNumerals&) = delete;

private:
    std::string earlier_;
};

} // namespace orvanta::test
