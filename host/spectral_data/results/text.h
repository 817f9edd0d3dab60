// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers as text, the same in every locale.
#pragma once

#include "spectra_contract/api.h"

#include <cstdint>
#include <string>

namespace orvanta::spectral {

/// Fixed-point text with \p decimals places.
ORVANTA_API std::string FixedText(double value, int decimals);
/// "1 epoch", "2 epochs".
ORVANTA_API std::string EpochsText(std::uint64_t count);

} // namespace orvanta::spectral
