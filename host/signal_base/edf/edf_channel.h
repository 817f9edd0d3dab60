// SPDX-License-Identifier: GPL-3.0-or-later
// One channel of an EDF or BDF header.
#pragma once

#include "host/signal_base/edf/edf_fields.h"
#include "host/signal_base/edf/edf_header.h"

namespace orvanta::signal {

/// Reads label, texts and calibration of channel \p channel (from 1) of \p channels. An empty label
/// becomes "Channel" and the number. The layout is left to the caller.
EdfSignal ReadEdfChannel(EdfFields& fields, std::size_t channel, std::size_t channels);

} // namespace orvanta::signal
