// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers and times as text, the same in every locale.
#pragma once

#include "spectra_contract/api.h"
#include "spectra_contract/time.h"

#include <cstdint>
#include <string>

namespace orvanta::spectral {

/// Fixed-point text with \p decimals places.
ORVANTA_API std::string FixedText(double value, int decimals);
/// "1 epoch", "2 epochs".
ORVANTA_API std::string EpochsText(std::uint64_t count);
/// hh:mm:ss.mmm, rounded to the nearest millisecond; hours grow beyond two digits.
ORVANTA_API std::string ElapsedText(XTime time);

} // namespace orvanta::spectral
