// SPDX-License-Identifier: GPL-3.0-or-later
// The steps in which traces are scaled.
#pragma once

#include <array>
#include <span>

namespace orvanta::review {

/// Sensitivities, µV per millimetre.
inline constexpr std::array kSensitivities{
    0.1,   0.2,   0.5,   1.0,   2.0,   3.0,   5.0,   7.0,   10.0,  15.0,   20.,    30.,    50.,    70.0,
    100.0, 150.0, 200.0, 300.0, 500.0, 700.0, 1000., 2000., 5000., 10000., 20000., 50000., 100000.};
/// Seconds on a page.
inline constexpr std::array kPageLengths{0.5,  1.0,  2.0,   5.0,   10.0,  15.0,   20.0,
                                         30.0, 60.0, 120.0, 300.0, 600.0, 1800.0, 3600.0};

/// The step behind \p value, or before it; the end of the ladder beyond it.
/// \param steps ascending, at least one
double NextStep(std::span<const double> steps, double value, bool up);

/// The largest of 1, 2 and 5 times a power of ten that is not above \p most, which is above 0 and finite.
double RoundValueBelow(double most);

} // namespace orvanta::review
