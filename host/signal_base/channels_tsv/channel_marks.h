// SPDX-License-Identifier: GPL-3.0-or-later
// Which channels are marked bad, kept in a BIDS channels table beside the recording.
#pragma once

#include "host/signal_base/channels_tsv/channels_table.h"
#include "spectra_contract/api.h"
#include "spectra_contract/recording.h"

#include <map>
#include <span>
#include <string>
#include <vector>

namespace orvanta::signal {

/// "<stem>_channels.tsv" beside the recording, whose name ends with the BIDS "_eeg" or not; empty for a
/// recording that is not on the disk.
ORVANTA_API std::string ChannelsTableOf(const std::string& recording);

/// What the table beside the recording says, where there is one; what it marks bad and what was not
/// understood goes to \p repairs. A table that cannot be read says nothing.
ORVANTA_API std::vector<ChannelMark> ReadChannelMarks(const std::string& recording,
                                                      std::vector<std::string>& repairs);
/// Marks the sensors of these names; unknown ones are left out. An average reference notices when it is
/// chosen.
ORVANTA_API void MarkChannels(EEGFileInfoType& recording, std::span<const ChannelMark> marks);

/// By recorded name: every sampled signal, and whether it is marked bad.
using ChannelMarks = std::map<std::string, bool>;
ORVANTA_API ChannelMarks MarksOf(const EEGFileInfoType& recording);

/// Writes into the table the marks that differ from \p before; atomic. What others wrote there meanwhile
/// stays. The recording itself is never written.
/// \throws std::runtime_error "PATH: reason (remedy)"; then the file is as it was
ORVANTA_API void SaveChannelMarks(const EEGFileInfoType& recording, const ChannelMarks& before);

} // namespace orvanta::signal
