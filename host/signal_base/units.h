// SPDX-License-Identifier: GPL-3.0-or-later
// Units of voltage as recordings spell them.
#pragma once

#include "spectra_contract/api.h"

#include <optional>
#include <string>
#include <string_view>

namespace orvanta::signal {

/// One spelling per unit: "V", "mV", "µV" (U+00B5) and "nV" for any spelling of these in UTF-8 (any case,
/// "uV", "muV", "mcV", "mkV", Greek mu, "microvolt", a micro sign that was lost, encoded twice or read in
/// another code page); all other units trimmed. "MV" is a
/// millivolt: no recording has megavolts, but headers in capitals exist.
ORVANTA_API std::string NormalUnit(std::string_view unit);
/// Microvolts in one \p normalUnit; none when it is no unit of voltage.
ORVANTA_API std::optional<double> MicrovoltsPer(std::string_view normalUnit);

} // namespace orvanta::signal
