// SPDX-License-Identifier: GPL-3.0-or-later
// Zooming the frequency axis.
#pragma once

#include "spectra_contract/spectra_types.h"

namespace orvanta::spectrum_view {

/// Doubles MaxX while it lies below half of \p rate (Hz), so that it may pass that half once; then sets it to
/// half the rate in whole Hz.
void Widen(SPECT::Scale& scale, double rate);

/// Halves MaxX; a value below 8 Hz becomes 4 Hz.
void Narrow(SPECT::Scale& scale);

/// The shown range after either: the top follows MaxX up to half of \p loadedRate (Hz), the bottom stays
/// where it can. The record keeps its MaxX.
SPECT::FrequencyRange RangeAfterZoom(const SPECT::Scale& scale, const SPECT::FrequencyRange& shown,
                                     double loadedRate);

/// The shown range after the scale was edited: the top at least 4 Hz, the bottom at least 0, and 0 when it is
/// not below the top.
SPECT::FrequencyRange RangeAfterEdit(const SPECT::Scale& scale);

} // namespace orvanta::spectrum_view
