// SPDX-License-Identifier: GPL-3.0-or-later
// The channels that a BrainVision header describes.
#pragma once

#include "host/signal_base/brainvision/ini_text.h"
#include "host/signal_base/recording_data.h"

#include <cstddef>
#include <string>
#include <vector>

namespace orvanta::signal::brainvision {

/// How many channels the lines "Ch1=" to "Ch<n>=" describe without a gap.
std::size_t CountDescribed(const std::vector<IniEntry>& entries);

/// Channels 1 to \p count from the lines "Ch<n>=name,reference,resolution,unit" of the channel section. A
/// missing line gives a channel "Ch<n>" that is not calibrated; an empty resolution is 1, an empty unit µV.
std::vector<SignalHeader> ReadChannels(const std::vector<IniEntry>& entries, std::size_t count,
                                       double rate_hz, std::vector<std::string>& repairs);

} // namespace orvanta::signal::brainvision
