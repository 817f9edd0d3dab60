// SPDX-License-Identifier: GPL-3.0-or-later
// Labels that tell the signals of a file apart.
#pragma once

#include "host/signal_base/recording_data.h"
#include "spectra_contract/api.h"

#include <cstddef>
#include <vector>

namespace orvanta::signal {

/// Gives every signal whose label an earlier one has the suffix "-2", "-3", ..., the first that makes a label
/// of no signal. Returns the indices of the signals that were renamed, ascending.
ORVANTA_API std::vector<std::size_t> MakeLabelsUnique(std::vector<SignalHeader>& signals);

} // namespace orvanta::signal
