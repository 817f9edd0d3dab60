// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/bci_regression.h"

#include "host/spectral_data/statistics/regression.h"
#include "spectra_contract/sensor.h"
#include "spectra_contract/spect_macro_result.h"

#include <algorithm>
#include <cmath>
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

/// log10 power of every epoch of the groups, one list per bin.
std::vector<std::vector<double>> LogPower(const std::vector<ContrastGroup>& groups, const SensorType* sensor,
                                          BinRange bins) {
    std::vector<std::vector<double>> columns(bins.last - bins.first);
    for (const ContrastGroup& group : groups) {
        group.analysis->Epochs().ForEach(group.analysis->Row(sensor)->row, [&](std::span<const float> power) {
            for (std::uint32_t bin = bins.first; bin < bins.last; ++bin) {
                columns[bin - bins.first].push_back(std::log10(static_cast<double>(power[bin])));
            }
        });
    }
    return columns;
}

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
                               std::list<BCIReg>& results) {
    results.clear();
    if (low_hz > high_hz) {
        return RegressionCode::ReversedRange;
    }
    const std::vector<ContrastGroup> used = Comparable(groups);
    std::vector<double> contrasts;
    for (const ContrastGroup& group : used) {
        contrasts.insert(contrasts.end(), group.analysis->EpochCount(), group.contrast);
    }
    if (contrasts.empty()) {
        return RegressionCode::NoObservations;
    }
    if (std::adjacent_find(contrasts.begin(), contrasts.end(), std::not_equal_to()) == contrasts.end()) {
        return RegressionCode::NoContrast;
    }
    const std::vector<const SensorType*> common = CommonSensors(used, sensors);
    const BinRange bins = BinsWithin(*used.front().analysis, low_hz, high_hz);
    if (common.empty() || bins.first >= bins.last) {
        return RegressionCode::NoPredictors;
    }
    std::list<BCIReg> rows;
    for (const SensorType* sensor : common) {
        std::vector<std::vector<double>> columns;
        try {
            columns = LogPower(used, sensor, bins);
        } catch (const std::runtime_error&) { // the file went away or changed
            return RegressionCode::ReadFailed;
        }
        for (std::uint32_t bin = bins.first; bin < bins.last; ++bin) {
            const Line line = FitLine(columns[bin - bins.first], contrasts);
            rows.push_back({sensor, bin * used.front().analysis->Resolution(), line.r, line.slope,
                            line.intercept, line.count});
        }
    }
    results = std::move(rows);
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
