// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/accumulators.h"

#include <limits>

namespace orvanta::spectral {

void MomentTable::Clear() {
    mean_.Clear();
    m2_.Clear();
}

void MomentTable::Merge(const MomentTable& later, std::uint64_t before, std::uint64_t added) {
    if (added == 0) {
        return;
    }
    const auto total = static_cast<double>(before + added);
    const double share = static_cast<double>(added) / total;
    const double cross = static_cast<double>(before) * share;
    double* mean = mean_.data();
    double* m2 = m2_.data();
    const double* laterMean = later.mean_.data();
    const double* laterM2 = later.m2_.data();
    for (std::size_t i = 0; i < mean_.size(); ++i) {
        const double delta = laterMean[i] - mean[i];
        mean[i] += delta * share;
        m2[i] += laterM2[i] + delta * delta * cross;
    }
}

Moments MomentTable::Rows(std::size_t sensors, std::size_t derivedRows, bool none) const {
    Moments rows;
    const std::size_t values = CheckedProduct(sensors + derivedRows, columns_);
    const double start = none ? std::numeric_limits<double>::quiet_NaN() : 0.0;
    rows.mean.assign(values, start);
    rows.m2.assign(values, start);
    if (none) {
        return rows;
    }
    std::size_t to = 0;
    const auto copy = [&](std::size_t from, std::size_t step) {
        for (std::size_t column = 0; column < columns_; ++column, ++to) {
            rows.mean[to] = mean_[from + column * step];
            rows.m2[to] = m2_[from + column * step];
        }
    };
    for (std::size_t sensor = 0; sensor < sensors; ++sensor) {
        copy(GroupAt(sensor / lanes_) + sensor % lanes_, lanes_);
    }
    for (std::size_t row = 0; row < derivedRows; ++row) {
        copy(DerivedAt(row), 1);
    }
    return rows;
}

template <class T>
Accumulators::Accumulators(const Setup<T>& setup) : power(setup, setup.bins) {
    if (setup.request.amplitude) {
        amplitude = MomentTable(setup, setup.bins);
    }
    if (setup.request.log_power) {
        logPower = MomentTable(setup, setup.bins);
    }
    if (!setup.request.bands.empty()) {
        bandPower = MomentTable(setup, setup.request.bands.size());
    }
    cross = AlignedArray<double>(CheckedProduct(setup.request.pairs.size(), 2 * setup.pitch));
}

void Accumulators::Clear() {
    epochs = 0;
    for (MomentTable* table : {&power, &amplitude, &logPower, &bandPower}) {
        table->Clear();
    }
    cross.Clear();
}

void Accumulators::Merge(const Accumulators& later) {
    power.Merge(later.power, epochs, later.epochs);
    amplitude.Merge(later.amplitude, epochs, later.epochs);
    logPower.Merge(later.logPower, epochs, later.epochs);
    bandPower.Merge(later.bandPower, epochs, later.epochs);
    for (std::size_t i = 0; i < cross.size(); ++i) {
        cross[i] += later.cross[i];
    }
    epochs += later.epochs;
}

std::size_t Accumulators::Bytes() const {
    return power.Bytes() + amplitude.Bytes() + logPower.Bytes() + bandPower.Bytes() +
           sizeof(double) * cross.size();
}

template <class T>
void WriteResult(const Setup<T>& setup, const Accumulators& all, EngineResult& result) {
    const bool none = all.epochs == 0;
    const auto rows = [&](const MomentTable& table) {
        return table.Rows(setup.Sensors(), setup.derivedRows, none);
    };
    result.rows = static_cast<std::uint32_t>(setup.Sensors() + setup.derivedRows);
    result.bins = setup.request.bins;
    result.epochs = all.epochs;
    result.power = rows(all.power);
    result.amplitude = rows(all.amplitude);
    result.log_power = rows(all.logPower);
    result.band_power = rows(all.bandPower);
    result.cross.clear();
    for (std::size_t pair = 0; pair < setup.request.pairs.size(); ++pair) {
        const double* re = all.cross.data() + pair * 2 * setup.pitch;
        for (std::size_t bin = 0; bin < setup.bins; ++bin) {
            // 0/0 without epochs: NaN.
            const auto count = static_cast<double>(all.epochs);
            result.cross.emplace_back(re[bin] / count, re[setup.pitch + bin] / count);
        }
    }
}

template Accumulators::Accumulators(const Setup<float>&);
template Accumulators::Accumulators(const Setup<double>&);
template void WriteResult(const Setup<float>&, const Accumulators&, EngineResult&);
template void WriteResult(const Setup<double>&, const Accumulators&, EngineResult&);

} // namespace orvanta::spectral
