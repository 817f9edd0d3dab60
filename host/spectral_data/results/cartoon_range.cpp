// SPDX-License-Identifier: GPL-3.0-or-later
// The ends of a measure over all epochs.
#include "host/spectral_data/not_computable.h"
#include "host/spectral_data/results/spect_macro_result_impl.h"
#include "host/spectral_data/results/spectrum_impl.h"
#include "host/spectral_data/statistics/measures.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/spect_globals.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

using namespace orvanta::spectral;

namespace {

/// Measures one band of epoch after epoch.
class EpochMeasure {
public:
    EpochMeasure(const Analysis& analysis, double lo, double hi, SPECT::Meas::Type measure)
        : lo_(lo), hi_(hi), measure_(measure) {
        const SPECT::Globals& globals = SPECT::GetGlobals();
        input_.entity = globals.GetMeasEntity();
        input_.resolution_hz = analysis.Resolution();
        input_.total_lo = globals.TotalLo;
        input_.total_hi = globals.TotalHi;
        input_.abs_mean = kNaN; // an epoch has no spread
        input_.abs_sd = kNaN;
        const auto lastOf = [&](double low, double high) {
            return BandBins(low, high, input_.resolution_hz, analysis.Bins()).last;
        };
        // Bins above both bands tell nothing.
        const std::uint32_t bins = std::max(lastOf(lo, hi), lastOf(globals.TotalLo, globals.TotalHi));
        values_.resize(bins);
        power_.resize(bins);
        input_.values = values_;
        input_.power = power_;
    }

    double Of(std::span<const float> power) {
        for (std::size_t bin = 0; bin < values_.size(); ++bin) {
            values_[bin] = EpochValue(input_.entity, power[bin]);
            power_[bin] = power[bin];
        }
        return BandMeasure(input_, lo_, hi_, measure_);
    }

private:
    double lo_, hi_;
    SPECT::Meas::Type measure_;
    MeasureInput input_;
    std::vector<double> values_, power_;
};

std::vector<std::uint32_t> RowsOf(const Analysis& analysis, const SensorList& sensors) {
    std::vector<std::uint32_t> rows;
    for (const SensorType* sensor : sensors) {
        if (const auto trace = analysis.Row(sensor)) {
            rows.push_back(trace->row);
        }
    }
    return rows;
}

} // namespace

std::optional<std::pair<double, double>> SpectMacroResult::GetCartoonRange(const SensorList& sensors,
                                                                           int band,
                                                                           SPECT::Meas::Type measure,
                                                                           GenericProgress* progress) const {
    const auto edges = BandEdges(band);
    const std::shared_ptr<const Analysis> analysis = impl_->analysis; // progress may let others reset it
    if (!edges || !analysis) {
        return std::nullopt;
    }
    const std::vector<std::uint32_t> rows = RowsOf(*analysis, sensors);
    if (rows.empty()) {
        return std::nullopt;
    }
    EpochMeasure epochs(*analysis, edges->first, edges->second, measure);
    std::optional<std::pair<double, double>> range;
    const auto widen = [&range](double value) {
        if (std::isfinite(value)) {
            range = range ? std::pair(std::min(range->first, value), std::max(range->second, value))
                          : std::pair(value, value);
        }
    };
    const auto measureBlock = [&](std::uint64_t first, std::uint64_t last) {
        for (const std::uint32_t row : rows) {
            for (std::uint64_t epoch = first; epoch < last; ++epoch) {
                widen(epochs.Of(analysis->Epochs().Power(epoch, row)));
            }
        }
        if (progress == nullptr) {
            return true;
        }
        progress->SetPosition(static_cast<double>(last) / static_cast<double>(analysis->EpochCount()));
        return !progress->IsCancelled();
    };
    try {
        const std::uint32_t behindLast = *std::max_element(rows.begin(), rows.end()) + 1;
        return analysis->Epochs().ForEachBlock(behindLast, measureBlock) ? range : std::nullopt;
    } catch (const std::runtime_error&) { // the file went away or changed
        return std::nullopt;
    }
}
