// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/bci_regression.h"

#include "host/spectral_data/statistics/regression.h"
#include "spectra_contract/sensor.h"
#include "spectra_contract/spect_macro_result.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>
#include <stdexcept>

namespace orvanta::spectral {

namespace {

/// Bins of [low, high], both included.
BinRange BinsWithin(const Analysis& analysis, double low_hz, double high_hz) {
    BinRange range{analysis.Bins(), 0};
    for (std::uint32_t bin = 0; bin < analysis.Bins(); ++bin) {
        const double hz = bin * analysis.Resolution();
        if (hz >= low_hz && hz <= high_hz) {
            range.first = std::min(range.first, bin);
            range.last = bin + 1;
        }
    }
    return range;
}

/// The fits of all pairs, sensor by sensor.
class Fits {
public:
    Fits(const std::vector<const SensorType*>& sensors, BinRange bins)
        : sensors_(sensors), bins_(bins), fits_(sensors.size() * (bins.last - bins.first)) {}

    /// One pass over the epochs, however many pairs there are. \param goesOn is told how many epochs more
    /// were added, and ends it by false \return false when it was ended \throws RecordingError
    template <typename GoesOn>
    bool Add(const ContrastGroup& group, GoesOn& goesOn) {
        const Analysis& analysis = *group.analysis;
        std::vector<std::uint32_t> rows;
        for (const SensorType* sensor : sensors_) {
            rows.push_back(analysis.Row(sensor)->row);
        }
        const std::uint32_t last = *std::max_element(rows.begin(), rows.end());
        return analysis.Epochs().ForEachBlock(last + 1, [&](std::uint64_t first, std::uint64_t end) {
            auto fits = fits_.begin();
            for (const std::uint32_t row : rows) {
                for (std::uint64_t epoch = first; epoch < end; ++epoch) {
                    AddEpoch(analysis.Epochs().Power(epoch, row), group.contrast, fits);
                }
                fits += bins_.last - bins_.first;
            }
            return goesOn(end - first);
        });
    }
    Line Of(std::size_t sensor, std::uint32_t bin) const {
        return fits_[sensor * (bins_.last - bins_.first) + bin - bins_.first].Result();
    }

private:
    void AddEpoch(std::span<const float> power, int contrast, std::vector<LineFit>::iterator fit) const {
        for (std::uint32_t bin = bins_.first; bin < bins_.last; ++bin) {
            (fit++)->Add(std::log10(static_cast<double>(power[bin])), contrast);
        }
    }

    const std::vector<const SensorType*>& sensors_;
    BinRange bins_;
    std::vector<LineFit> fits_;
};

std::vector<const SensorType*> CommonSensors(const std::vector<ContrastGroup>& groups,
                                             const std::set<const SensorType*>& wanted) {
    std::vector<const SensorType*> common;
    for (const SensorType* sensor : groups.front().analysis->Sensors()) {
        const bool everywhere = std::all_of(groups.begin(), groups.end(), [&](const ContrastGroup& group) {
            return group.analysis->Row(sensor).has_value();
        });
        if (wanted.contains(sensor) && everywhere) {
            common.push_back(sensor);
        }
    }
    return common;
}

} // namespace

std::vector<ContrastGroup> GroupsOf(const std::list<SpectMacroResult*>& analyses) {
    std::vector<ContrastGroup> groups;
    for (const SpectMacroResult* analysis : analyses) {
        if (analysis != nullptr) {
            groups.push_back(
                {analysis->GetAnalysis(), analysis->GetMacro().GetContrastValue(), analysis->GetName()});
        }
    }
    return groups;
}

std::vector<ContrastGroup> Comparable(const std::vector<ContrastGroup>& groups) {
    std::vector<ContrastGroup> used;
    for (const ContrastGroup& group : groups) {
        if (group.analysis &&
            (used.empty() || (group.analysis->Bins() == used.front().analysis->Bins() &&
                              group.analysis->Resolution() == used.front().analysis->Resolution()))) {
            used.push_back(group);
        }
    }
    return used;
}

RegressionCode RegressContrast(const std::vector<ContrastGroup>& groups,
                               const std::set<const SensorType*>& sensors, double low_hz, double high_hz,
                               std::list<BCIReg>& results, GenericProgress* progress) {
    results.clear();
    if (low_hz > high_hz) {
        return RegressionCode::ReversedRange;
    }
    const std::vector<ContrastGroup> used = Comparable(groups);
    const std::uint64_t epochs = std::accumulate(
        used.begin(), used.end(), std::uint64_t{0},
        [](std::uint64_t sum, const ContrastGroup& group) { return sum + group.analysis->EpochCount(); });
    if (epochs == 0) {
        return RegressionCode::NoObservations;
    }
    if (std::adjacent_find(used.begin(), used.end(), [](const ContrastGroup& a, const ContrastGroup& b) {
            return a.contrast != b.contrast;
        }) == used.end()) {
        return RegressionCode::NoContrast;
    }
    const std::vector<const SensorType*> common = CommonSensors(used, sensors);
    const BinRange bins = BinsWithin(*used.front().analysis, low_hz, high_hz);
    if (common.empty() || bins.first >= bins.last) {
        return RegressionCode::NoPredictors;
    }
    Fits fits(common, bins);
    auto goesOn = [progress, epochs, done = std::uint64_t{0}](std::uint64_t more) mutable {
        done += more;
        if (progress == nullptr) {
            return true;
        }
        progress->SetPosition(static_cast<double>(done) / static_cast<double>(epochs));
        return !progress->IsCancelled();
    };
    try {
        if (!std::all_of(used.begin(), used.end(),
                         [&](const ContrastGroup& group) { return fits.Add(group, goesOn); })) {
            return RegressionCode::Cancelled;
        }
    } catch (const std::runtime_error&) { // the file went away or changed
        return RegressionCode::ReadFailed;
    }
    for (std::size_t sensor = 0; sensor < common.size(); ++sensor) {
        for (std::uint32_t bin = bins.first; bin < bins.last; ++bin) {
            const Line line = fits.Of(sensor, bin);
            results.push_back({common[sensor], bin * used.front().analysis->Resolution(), line.r, line.slope,
                               line.intercept, line.count});
        }
    }
    return RegressionCode::Done;
}

} // namespace orvanta::spectral

std::set<const SensorType*> GetBCISensors(const SpectMacroResult& main) {
    std::set<const SensorType*> sensors;
    for (const auto& [sensor, spectrum] : main.GetSensorMap()) {
        if (sensor->GetType() == Sensor::ScalpEeg) {
            sensors.insert(sensor);
        }
    }
    return sensors;
}

std::vector<BCIPoint> GetBCIPoints(const std::list<SpectMacroResult*>& analyses, const BCIReg& result) {
    using namespace orvanta::spectral;
    std::vector<BCIPoint> points;
    for (const ContrastGroup& group : Comparable(GroupsOf(analyses))) {
        const auto trace = group.analysis->Row(result.Sensor);
        const auto bin =
            static_cast<std::uint64_t>(std::llround(result.FreqHz / group.analysis->Resolution()));
        if (!trace || bin >= group.analysis->Bins()) {
            continue;
        }
        group.analysis->Epochs().ForEach(trace->row, [&](std::span<const float> power) {
            const double x = std::log10(static_cast<double>(power[bin]));
            if (std::isfinite(x)) {
                points.push_back({x, static_cast<double>(group.contrast)});
            }
        });
    }
    return points;
}
