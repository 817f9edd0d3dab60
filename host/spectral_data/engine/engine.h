// SPDX-License-Identifier: GPL-3.0-or-later
// Spectra of many sensors over many epochs in one pass over the samples.
#pragma once

#include "host/signal_base/block_source.h"
#include "spectra_contract/api.h"

#include <complex>
#include <cstdint>
#include <span>
#include <vector>

class GenericProgress;

namespace orvanta::spectral {

enum class Precision { Float, Double };

/// A sensor's samples: value in µV = gain × stored value + offset. The offset goes with each epoch's mean.
/// With NaN for the gain the sensor is left out: its results, and those of nodes and pairs that use it, are
/// NaN.
struct EngineSensor {
    std::size_t signal = 0;
    double gain = 1;
    double offset = 0;
};

/// A share of a node in a derived one.
struct NodeTerm {
    std::uint32_t node = 0;
    double weight = 0;
};

/// A linear combination of earlier nodes. Nodes count on from the sensors: 0 … S−1 are the sensors, S + i is
/// derived node i, whose terms name nodes below S + i only. A node that only serves others (the mean of an
/// average reference) is not accumulated.
struct DerivedNode {
    std::vector<NodeTerm> terms;
    bool accumulated = true;
};

struct NodePair {
    std::uint32_t a = 0;
    std::uint32_t b = 0;
};

/// Bins [first, last).
struct BinRange {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
};

/// What to compute. Rows of the result are the sensors and then the accumulated derived nodes, in order.
struct EngineRequest {
    std::vector<EngineSensor> sensors;
    std::vector<DerivedNode> derived;
    std::vector<NodePair> pairs;      ///< cross-spectra
    std::vector<std::int64_t> epochs; ///< first sample of each epoch, ascending
    std::uint32_t window = 0;         ///< n, samples per epoch, at least 1
    std::uint32_t padded = 0;         ///< p, transform length: the smallest power of two >= n
    std::vector<double> taper;        ///< n values
    double rate_hz = 0;
    std::uint32_t bins = 0;       ///< bins 0 … bins−1 are kept, at most p/2 + 1
    bool amplitude = false;       ///< moments of sqrt(power)
    bool log_power = false;       ///< moments of ln(power)
    std::vector<BinRange> bands;  ///< moments of the power summed over each range, times rate/p (µV²); an
                                  ///< empty range sums to 0
    std::uint32_t store_bins = 0; ///< keep every epoch's power as float for bins 0 … store_bins−1
    Precision precision = Precision::Float;
    /// What the threads' own sums may take together, bytes; where they would take more, fewer threads work.
    std::uint64_t working_bytes = std::uint64_t{1} << 29;
    unsigned threads = 0; ///< 0: one per core. Results do not depend on it, bit for bit.
};

/// Mean and sum of squared deviations over the epochs; rows × columns, row-major. NaN without epochs; the sum
/// is 0 for one epoch.
struct Moments {
    std::vector<double> mean;
    std::vector<double> m2;
};

struct EngineResult {
    std::uint32_t rows = 0;
    std::uint32_t bins = 0;
    std::uint64_t epochs = 0;
    Moments power;      ///< rows × bins, µV²/Hz, one-sided
    Moments amplitude;  ///< rows × bins, µV/√Hz; empty unless asked for
    Moments log_power;  ///< rows × bins, ln(µV²/Hz); NaN where a power is 0; empty unless asked for
    Moments band_power; ///< rows × bands, µV²; empty unless asked for
    std::vector<std::complex<double>>
        cross;                 ///< pairs × bins, mean of X_a · conj(X_b) in one-sided density units
    std::vector<float> stored; ///< rows × epochs × store_bins, µV²/Hz
};

/// Computes the request in one pass. Each epoch's mean is removed, the taper applied, zeros appended up to p,
/// and P[k] = c·|X[k]|² / (rate·Σw²) taken, c = 2, but 1 at k = 0 and k = p/2 (equal to SciPy's welch with
/// scaling='density', detrend='constant'). In float, densities and their moments are within 1e-6 of the
/// largest bin whatever the offset of the samples, logarithms within 4 units in the last place; in double
/// within 1e-9. The bits depend on the request and the machine's vector width, never on the number of
/// threads. \param progress may be null; called on this thread; a cancel ends the work \return false when
/// cancelled, \p result then unspecified \throws std::invalid_argument for a request that contradicts itself
/// or the source; RecordingError from reading
ORVANTA_API bool Accumulate(const signal::BlockSource& source, const EngineRequest& request,
                            EngineResult& result, GenericProgress* progress);

/// Power of single epochs, computed again from the samples with the same bits as the stored ones.
/// \param epochs indices into request.epochs
/// \param rows row indices of the result
/// \param out epochs.size() × rows.size() × request.bins values, epoch-major
ORVANTA_API void EpochPower(const signal::BlockSource& source, const EngineRequest& request,
                            std::span<const std::uint64_t> epochs, std::span<const std::uint32_t> rows,
                            std::vector<float>& out);

} // namespace orvanta::spectral
