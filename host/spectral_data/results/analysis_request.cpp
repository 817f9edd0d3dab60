// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/analysis_request.h"

#include "host/spectral_data/not_computable.h"
#include "host/spectral_data/results/text.h"
#include "host/spectral_data/settings/tapers.h"
#include "host/spectral_data/statistics/measures.h"
#include "spectra_contract/spect_globals.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace orvanta::spectral {

namespace {

/// Sums of more than this are refused: no sensible window needs them, and a slip in the settings must not
/// exhaust the machine.
constexpr double kMostBytes = 4.0 * 1024 * 1024 * 1024;

void RequireMemory(const EngineRequest& request, std::uint64_t rows) {
    const double sums = 2.0 * (1 + (request.amplitude ? 1 : 0) + (request.log_power ? 1 : 0));
    const double values =
        static_cast<double>(request.bins) *
        (sums * static_cast<double>(rows) + 2.0 * static_cast<double>(request.pairs.size()));
    const double bytes = values * sizeof(double);
    if (bytes > kMostBytes) {
        throw std::runtime_error("spectra of " + std::to_string(rows) + " traces with " +
                                 std::to_string(request.bins) + " bins would take " +
                                 FixedText(bytes / (1024.0 * 1024 * 1024), 1) +
                                 " GiB of memory (choose a shorter FFT window)");
    }
}

} // namespace

std::vector<BinRange> DefinedBands(double resolution_hz, std::uint32_t bins) {
    const SPECT::Globals& globals = SPECT::GetGlobals();
    std::vector<BinRange> ranges;
    const auto add = [&](double lo, double hi) {
        const BinRange range = BandBins(lo, hi, resolution_hz, bins);
        if (range.first < range.last) {
            ranges.push_back(range);
        }
    };
    for (const SPECT::Band& band : globals.Bands) {
        add(band.lo, band.hi);
    }
    add(globals.TotalLo, globals.TotalHi);
    return ranges;
}

EngineRequest MakeRequest(const AnalysisInput& input, const MontageNodes& nodes) {
    EngineRequest request;
    for (const SensorType* sensor : nodes.sensors) {
        const signal::SensorSamples samples = input.recording->Samples(*sensor);
        if (!std::isfinite(samples.gain) || !std::isfinite(samples.offset)) {
            throw std::runtime_error("the calibration of sensor " + sensor->GetName() +
                                     " is no finite number (correct its physical range in the file)");
        }
        // Not a number from the first step on, so that nothing made of a bad electrode looks like a result.
        request.sensors.push_back({samples.signal, sensor->IsBad() ? kNaN : samples.gain, samples.offset});
    }
    request.derived = nodes.derived;
    request.pairs = nodes.pairs;
    request.epochs = input.plan.starts;
    request.window = input.plan.geometry.window;
    request.padded = input.plan.geometry.padded;
    request.rate_hz = input.recording->Rate();
    request.bins = request.padded / 2 + 1;
    request.amplitude = input.options.amplitude;
    request.log_power = input.options.statistics;
    RequireMemory(request, nodes.rows);
    request.taper = FindTaper(input.macro.GetDSPWindowStr()).Values(request.window);
    request.bands = DefinedBands(request.rate_hz / request.padded, request.bins);
    const double storedBytes = static_cast<double>(nodes.rows) * static_cast<double>(request.epochs.size()) *
                               request.bins * sizeof(float);
    const bool fits = storedBytes <= static_cast<double>(input.options.memory_bytes);
    request.store_bins = input.options.store_epochs && fits ? request.bins : 0;
    request.working_bytes = input.options.memory_bytes / 2;
    request.precision = input.options.precision;
    request.threads = input.options.threads;
    return request;
}

} // namespace orvanta::spectral
