// SPDX-License-Identifier: GPL-3.0-or-later
// A recording made of the three files of a BrainVision recording.
#pragma once

#include "host/signal_base/brainvision/header.h"
#include "host/signal_base/brainvision/markers.h"
#include "host/signal_base/data_file.h"
#include "host/signal_base/recording_data.h"
#include "spectra_contract/api.h"

#include <memory>
#include <string>
#include <vector>

namespace orvanta::signal::brainvision {

/// Puts together what the files say: time from the markers, samples from \p dataFile in blocks of about a
/// second. Markers beyond the data are left out and named in \p repairs, which become the recording's.
/// \p markerName names the marker file in repairs. \throws RecordingError
ORVANTA_API RecordingData Assemble(Header header, const std::vector<Marker>& markers,
                                   const std::string& markerName, std::shared_ptr<const DataFile> dataFile,
                                   std::vector<std::string> repairs);

} // namespace orvanta::signal::brainvision
