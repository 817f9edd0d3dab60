// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/record_clock.h"

#include <algorithm>
#include <cmath>

namespace orvanta::signal {

void RecordClock::AddRecord(std::optional<double> onset_s) {
    withoutTime_ += onset_s ? 0u : 1u;
    const double onset = onset_s.value_or(expected_);
    if (segments_.empty()) {
        firstOnset_ = onset;
        segments_.push_back({0, 1, 0});
    } else if (std::abs(onset - expected_) <= tolerance_) {
        ++segments_.back().count;
    } else {
        overlaps_ += onset < expected_ ? 1u : 0u;
        const double start = std::max(EndOf(segments_.back()), onset - firstOnset_);
        segments_.push_back({records_, 1, start});
    }
    expected_ = onset + recordSeconds_;
    ++records_;
}

double RecordClock::Duration() const {
    return segments_.empty() ? 0 : EndOf(segments_.back());
}

double RecordClock::GapSeconds() const {
    return Duration() - static_cast<double>(records_) * recordSeconds_;
}

} // namespace orvanta::signal
