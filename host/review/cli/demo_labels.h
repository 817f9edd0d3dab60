// SPDX-License-Identifier: GPL-3.0-or-later
// Electrode names for any number of channels.
#pragma once

#include <string>
#include <vector>

namespace orvanta::cli {

/// The 19 names of the 10-20 system, then those of the 10-10 system, then of the 10-05 system, then "E" and
/// the channel's number; the first \p count of them.
std::vector<std::string> DemoLabels(unsigned count);

} // namespace orvanta::cli
