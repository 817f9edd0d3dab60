// SPDX-License-Identifier: GPL-3.0-or-later
// The number that says that there is none.
#pragma once

#include <limits>

namespace orvanta::spectral {

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

} // namespace orvanta::spectral
