// SPDX-License-Identifier: GPL-3.0-or-later
// Stored values that are no numbers.
#pragma once

#include "host/signal_base/block_source.h"
#include "host/signal_base/recording_data.h"

#include <string>
#include <vector>

namespace orvanta::signal::brainvision {

/// Counts the samples that are no finite numbers in the first 64 MiB of a source of floats, at least a block,
/// and adds a line to \p repairs for each channel that has some. Nothing is read of other formats.
/// \throws RecordingError when the file cannot be read
void CheckNumbers(const std::vector<SignalHeader>& signals, const BlockSource& source,
                  std::vector<std::string>& repairs);

} // namespace orvanta::signal::brainvision
