// SPDX-License-Identifier: GPL-3.0-or-later
// From sensors and a montage to the nodes of the engine.
#pragma once

#include "host/spectral_data/engine/engine.h"
#include "spectra_contract/api.h"
#include "spectra_contract/montage.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <tuple>
#include <vector>

namespace orvanta::spectral {

/// Where a trace's numbers are.
struct TraceRow {
    std::uint32_t row = 0;             ///< row of the engine's result
    std::optional<std::uint32_t> pair; ///< cross-spectrum of the trace's two electrodes

    bool operator==(const TraceRow&) const = default;
    friend bool operator<(const TraceRow& a, const TraceRow& b) {
        return std::tie(a.row, a.pair) < std::tie(b.row, b.pair);
    }
};

/// A montage in terms of the engine. Node i < sensors.size() is sensor i, and so is row i.
struct MontageNodes {
    struct Channel {
        std::shared_ptr<const ChnType> channel;
        std::optional<TraceRow> trace; ///< none when the channel names a sensor that is not analysed
    };

    std::vector<const SensorType*> sensors;
    std::vector<DerivedNode> derived;
    std::vector<NodePair> pairs;
    std::vector<Channel> channels; ///< in the montage's order
    std::uint32_t rows = 0;
};

/// Lays a montage over the sensors so that nothing is computed twice: a channel that is one sensor with
/// weight 1 shares the sensor's row, equal combinations share one node, average references over the same
/// sensors share one mean, which is not accumulated.
///
/// A pair's first node is the channel's second electrode y and its second the first electrode x, so that
/// X_a·conj(X_b) = conj(X)·Y, the cross-spectrum of x and y in the usual order (that of SciPy's csd(x, y)).
/// \param cross whether channels with two electrodes get their pair
ORVANTA_API MontageNodes LayOut(std::vector<const SensorType*> sensors, const MontageType& montage,
                                bool cross);

} // namespace orvanta::spectral
