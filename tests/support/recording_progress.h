// SPDX-License-Identifier: GPL-3.0-or-later
// A progress display that writes down what it is told.
#pragma once

#include "spectra_contract/platform.h"

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace orvanta::test {

/// Keeps the positions; counts as cancelled once it has CancelAfter of them.
class RecordingProgress final : public GenericProgress {
public:
    void SetText(const std::string& /*text*/) override {}
    void SetPosition(double fraction) override { Positions.push_back(fraction); }
    bool IsCancelled() const override { return Positions.size() >= CancelAfter; }

    std::vector<double> Positions;
    std::size_t CancelAfter = std::numeric_limits<std::size_t>::max();
};

} // namespace orvanta::test
