// SPDX-License-Identifier: GPL-3.0-or-later
// Labels that are offered for a new event.
#pragma once

#include "spectra_contract/events.h"

#include <string>
#include <vector>

namespace orvanta::review {

inline constexpr std::size_t kRecentLabels = 6;
inline constexpr std::size_t kOfferedLabels = 12;

/// The label first among those used last, no more than kRecentLabels of them.
std::vector<std::string> WithRecent(std::vector<std::string> recent, const std::string& label);

/// Those used last, then those of the class among the events, most frequent first, then what is marked most
/// often; none twice, at most kOfferedLabels.
std::vector<std::string> OfferedLabels(const std::vector<std::string>& recent,
                                       const std::vector<EventRecord>& events, EventClass eventClass);

// Labels or names as one text, for the settings.
std::string JoinedNames(const std::vector<std::string>& names);
std::vector<std::string> SplitNames(const std::string& text);

} // namespace orvanta::review
