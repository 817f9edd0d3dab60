// SPDX-License-Identifier: GPL-3.0-or-later
// What a failure says.
#pragma once

#include <string>

namespace orvanta::test {

/// The message of the failure that \p act ends with, "not refused" when it ends without one. Failures of
/// other kinds pass through.
template <typename Failure, typename Act>
std::string RefusalOf(const Act& act) {
    try {
        act();
        return "not refused";
    } catch (const Failure& failure) {
        return failure.what();
    }
}

} // namespace orvanta::test
