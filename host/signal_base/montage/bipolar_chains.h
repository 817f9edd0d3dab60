// SPDX-License-Identifier: GPL-3.0-or-later
// Bipolar montages: chains of neighbouring electrodes.
#pragma once

#include "host/signal_base/montage/standard_montages.h"

namespace orvanta::signal {

/// Chains from front to back ("double banana"), in the order of the guidelines of the American Clinical
/// Neurophysiology Society. Neighbours in a chain are linked, and also electrodes between which one is
/// missing (double distance, as in newborns); a larger gap ends the chain. Old and new 10-20 names serve.
MontageType LongitudinalMontage(const Sensors& sensors);
/// Chains from left to right, made in the same way.
MontageType TransverseMontage(const Sensors& sensors);

} // namespace orvanta::signal
