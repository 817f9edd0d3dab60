// SPDX-License-Identifier: GPL-3.0-or-later
// All samples of a signal, for comparing.
#pragma once

#include "host/signal_base/recording_data.h"

#include <vector>

namespace orvanta::test {

/// The stored values of signal \p signal of a recording with 16- or 24-bit samples, first to last.
std::vector<std::int32_t> StoredValues(const signal::RecordingData& data, std::size_t signal);

} // namespace orvanta::test
