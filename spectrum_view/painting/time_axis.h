// SPDX-License-Identifier: GPL-3.0-or-later
// Round times along an axis.
#pragma once

#include <string>
#include <vector>

namespace orvanta::spectrum_view {

/// Ticks of a time axis.
struct TimeTicks {
    double step_s = 0;
    std::vector<double> at_s; ///< ascending

    bool operator==(const TimeTicks&) const = default;
};

/// The multiples from \p begin_s to \p end_s of the smallest of 0.1 s … 12 h or whole days that gives at most
/// \p most; none when there is no range or fewer than two fit.
TimeTicks RoundTimes(double begin_s, double end_s, int most);

/// Clock time of a number of seconds since midnight, which may lie days on: "23:30" for steps of whole
/// minutes, "23:30:05" for whole seconds, else "23:30:05.2".
std::string TimeText(double seconds, double step_s);

} // namespace orvanta::spectrum_view
