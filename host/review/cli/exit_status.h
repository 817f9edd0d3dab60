// SPDX-License-Identifier: GPL-3.0-or-later
// What the program's exit status says.
#pragma once

#include <stdexcept>
#include <string>

namespace orvanta::cli {

enum ExitStatus : int {
    kDone = 0,
    kNothingComputable = 1,
    kRefused = 2,       ///< bad usage, or a file that was refused
    kInterrupted = 130, ///< the user asked to stop, as shells report it
};

/// A command that was called wrongly, or an input or output that failed: one line "WHAT: reason (remedy)".
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace orvanta::cli
