// SPDX-License-Identifier: GPL-3.0-or-later
// What a key saves in a batch: under which settings, in which order.
#pragma once

#include "spectra_contract/events.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace orvanta::spectrum_view {

/// Settings to change, and whether the spectra are then computed and saved.
struct BatchStep {
    std::optional<double> seconds;       ///< FFT length
    std::optional<std::string> window;   ///< taper
    std::optional<std::string> accepted; ///< label of the one accepted state event
    bool saves = false;

    bool operator==(const BatchStep&) const = default;
};

/// The steps of a key that is no other keys' press; none for a key without a batch.
/// \param types event types in the order of their files
/// \param rejected labels that get no file
std::vector<BatchStep> BatchSteps(unsigned key, const EventsCountMap& types,
                                  const std::set<std::string>& rejected);

/// The keys that the key stands for, in their order; none for all but "A".
std::vector<unsigned> BatchKeys(unsigned key);

/// Files that the key saves, those of the keys that it stands for included.
std::size_t CountBatchFiles(unsigned key, const EventsCountMap& types, const std::set<std::string>& rejected);

} // namespace orvanta::spectrum_view
