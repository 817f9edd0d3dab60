// SPDX-License-Identifier: GPL-3.0-or-later
// When the steps of a cartoon begin and end.
#pragma once

#include "spectra_contract/time.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace orvanta::spectral_maps {

/// Memory samples of one step.
struct CartoonStep {
    /// The smallest begin of the step's items; this where there is none.
    std::int64_t start = 2147483647;
    /// Where the step's last item in the list ends; 0 without an item.
    std::int64_t end = 0;

    bool operator==(const CartoonStep&) const = default;
};

/// Sample of a time.
using SampleOf = std::function<std::int64_t(const XTime*)>;

/// The steps from 0 to the largest number in the list, at least one and at most \p most of them.
std::vector<CartoonStep> StepsOf(const XTimeList& list, std::size_t most, const SampleOf& sampleOf);

} // namespace orvanta::spectral_maps
