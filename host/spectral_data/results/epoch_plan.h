// SPDX-License-Identifier: GPL-3.0-or-later
// Which epochs settings make of a recording.
#pragma once

#include "host/signal_base/recording.h"
#include "host/spectral_data/settings/epochs.h"
#include "spectra_contract/api.h"

#include <cstdint>
#include <vector>

namespace orvanta::spectral {

/// The epochs of an analysis, in samples and stretches of time.
struct EpochPlan {
    WindowGeometry geometry;
    std::vector<TimeSpan> spans;      ///< processed stretches in seconds, before gaps are cut out
    std::vector<std::int64_t> starts; ///< first sample of each epoch, ascending

    bool operator==(const EpochPlan&) const = default;
};

/// Samples of the recording that lie in an epoch, each counted once however many epochs share it.
ORVANTA_API std::int64_t CoveredSamples(const EpochPlan& plan);

/// Empty without EEG. \param cursor_s start of the by-duration mode, seconds from the recording's start
ORVANTA_API EpochPlan PlanEpochs(const SpectraMacro& macro, const EventsManager& events,
                                 const signal::Recording& recording, double cursor_s);

/// The epoch's stretch of time.
ORVANTA_API XTimeInterval EpochInterval(const signal::Recording& recording, const WindowGeometry& geometry,
                                        std::int64_t start);

/// \throws NothingComputable when the plan has no epoch, with the reason and what to do
ORVANTA_API void RequireEpochs(const EpochPlan& plan, const SpectraMacro& macro,
                               const signal::Recording& recording);

} // namespace orvanta::spectral
