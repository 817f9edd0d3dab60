// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/analysis.h"

#include "host/spectral_data/not_computable.h"
#include "host/spectral_data/results/analysis_request.h"
#include "host/spectral_data/statistics/comparison.h"
#include "host/spectral_data/statistics/measures.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace orvanta::spectral {

using SPECT::Entity::Type;

namespace {

double Deviation(double m2, std::uint64_t count) {
    return count < 2 ? kNaN : std::sqrt(m2 / static_cast<double>(count - 1));
}

/// Mean and deviation of numbers that come one by one (Welford).
class RunningSpread {
public:
    void Add(double value) {
        const double step = value - mean_;
        mean_ += step / static_cast<double>(++count_);
        m2_ += step * (value - mean_);
    }
    Spread Get() const { return {mean_, Deviation(m2_, count_)}; }

private:
    double mean_ = 0;
    double m2_ = 0;
    std::uint64_t count_ = 0;
};

std::vector<const SensorType*> EegSensors(const signal::Recording& recording) {
    std::vector<const SensorType*> sensors;
    for (const auto& sensor : recording.Sensors()) {
        if (sensor->IsEeg()) {
            sensors.push_back(sensor.get());
        }
    }
    return sensors;
}

} // namespace

std::shared_ptr<const Analysis> Analysis::Compute(AnalysisInput input, GenericProgress* progress) {
    RequireEpochs(input.plan, input.macro, *input.recording);
    const std::shared_ptr<Analysis> analysis(new Analysis);
    analysis->input_ = std::move(input);
    const AnalysisInput& in = analysis->input_;
    const bool channels = in.options.channels;
    analysis->nodes_ =
        LayOut(EegSensors(*in.recording), channels ? in.montage : MontageType(), in.options.cross);

    EngineRequest request = MakeRequest(in, analysis->nodes_);
    EngineResult& result = analysis->result_;
    if (!Accumulate(in.recording->Source(), request, result, progress)) {
        return nullptr;
    }
    for (std::uint32_t i = 0; i < analysis->nodes_.sensors.size(); ++i) {
        analysis->rowOfSensor_.emplace(analysis->nodes_.sensors[i], i);
    }
    for (std::size_t i = 0; i < analysis->nodes_.channels.size(); ++i) {
        analysis->channelOfName_.emplace(analysis->nodes_.channels[i].channel->GetName(), i);
    }
    analysis->bands_ = request.bands;
    analysis->effective_ = EffectiveEpochs(request.epochs, request.taper);
    analysis->effectiveLog_ = EffectiveLogEpochs(request.epochs, request.taper);
    analysis->epochs_ = std::make_unique<EpochSpectra>(
        in.recording, std::move(request), analysis->nodes_.rows, std::exchange(result.stored, {}));
    return analysis;
}

XTimeInterval Analysis::EpochTime(std::uint64_t epoch) const {
    return EpochInterval(Recording(), Geometry(), EpochStarts().at(epoch));
}

double Analysis::Resolution() const {
    return Recording().Rate() / Geometry().padded;
}

std::optional<TraceRow> Analysis::Row(const SensorType* sensor) const {
    const auto found = rowOfSensor_.find(sensor);
    return found == rowOfSensor_.end() ? std::nullopt : std::optional(TraceRow{found->second, {}});
}

std::optional<TraceRow> Analysis::Row(const ChnType* channel) const {
    const auto index = IndexOf(channel);
    return index ? nodes_.channels[*index].trace : std::nullopt;
}

std::optional<std::size_t> Analysis::IndexOf(const ChnType* channel) const {
    if (channel == nullptr) {
        return std::nullopt;
    }
    const auto [first, last] = channelOfName_.equal_range(channel->GetName());
    const auto found = std::find_if(first, last, [&](const auto& named) {
        const ChnType* own = nodes_.channels[named.second].channel.get();
        return own == channel || *own == *channel;
    });
    return found == last ? std::nullopt : std::optional(found->second);
}

const Moments* Analysis::MomentsOf(Type entity) const {
    switch (entity) {
    case Type::Power:
        return &result_.power;
    case Type::Amplitude:
        return result_.amplitude.mean.empty() ? nullptr : &result_.amplitude;
    case Type::Coherence:
    case Type::Phase:
        break;
    }
    return nullptr;
}

double Analysis::MeanAt(Type entity, TraceRow trace, std::uint64_t bin) const {
    if (bin >= Bins()) {
        return kNaN;
    }
    if (entity == Type::Coherence || entity == Type::Phase) {
        return CoherenceOrPhase(entity == Type::Phase, trace, bin);
    }
    const Moments* moments = MomentsOf(entity);
    return moments == nullptr ? kNaN : moments->mean[std::size_t{trace.row} * Bins() + bin];
}

double Analysis::SdAt(Type entity, TraceRow trace, std::uint64_t bin) const {
    const Moments* moments = MomentsOf(entity);
    if (moments == nullptr || bin >= Bins()) {
        return kNaN;
    }
    return Deviation(moments->m2[std::size_t{trace.row} * Bins() + bin], EpochCount());
}

double Analysis::CoherenceOrPhase(bool phase, TraceRow trace, std::uint64_t bin) const {
    if (!trace.pair || EpochCount() < 2) {
        return kNaN;
    }
    const NodePair& nodes = nodes_.pairs[*trace.pair]; // both are sensors, whose nodes are their rows
    const std::complex<double> cross = result_.cross[std::size_t{*trace.pair} * Bins() + bin];
    const double ofA = result_.power.mean[std::size_t{nodes.a} * Bins() + bin];
    const double ofB = result_.power.mean[std::size_t{nodes.b} * Bins() + bin];
    if (!(ofA > 0) || !(ofB > 0)) {
        return kNaN;
    }
    if (phase) {
        return std::arg(cross);
    }
    // Two roots, not one of the product, which could underflow; rounding may lead just above 1.
    return std::min(1.0, std::abs(cross) / (std::sqrt(ofA) * std::sqrt(ofB)));
}

std::vector<double> Analysis::MeanOf(Type entity, TraceRow trace) const {
    std::vector<double> values(Bins());
    for (std::uint32_t bin = 0; bin < Bins(); ++bin) {
        values[bin] = MeanAt(entity, trace, bin);
    }
    return values;
}

std::vector<double> Analysis::SdOf(Type entity, TraceRow trace) const {
    std::vector<double> values(Bins());
    for (std::uint32_t bin = 0; bin < Bins(); ++bin) {
        values[bin] = SdAt(entity, trace, bin);
    }
    return values;
}

std::pair<double, double> Analysis::LogPowerAt(TraceRow trace, std::uint64_t bin) const {
    if (result_.log_power.mean.empty() || bin >= Bins()) {
        return {kNaN, kNaN};
    }
    const std::size_t at = std::size_t{trace.row} * Bins() + bin;
    return {result_.log_power.mean[at], result_.log_power.m2[at]};
}

Spread Analysis::AbsSpread(Type entity, TraceRow trace, double lo_hz, double hi_hz) const {
    const BinRange range = BandBins(lo_hz, hi_hz, Resolution(), Bins());
    if ((entity != Type::Power && entity != Type::Amplitude) || range.first == range.last) {
        return {kNaN, kNaN};
    }
    const bool amplitude = entity == Type::Amplitude;
    const auto computed = std::find_if(bands_.begin(), bands_.end(), [&](const BinRange& band) {
        return band.first == range.first && band.last == range.last;
    });
    if (!amplitude && computed != bands_.end()) {
        const std::size_t at =
            std::size_t{trace.row} * bands_.size() + static_cast<std::size_t>(computed - bands_.begin());
        return {result_.band_power.mean[at], Deviation(result_.band_power.m2[at], EpochCount())};
    }
    const BandKey key{trace.row, range.first, range.last};
    if (!spreads_.contains(key)) {
        AddSpreads(trace.row, range);
    }
    const BandSpreads& spreads = spreads_.at(key);
    return amplitude ? spreads.amplitude : spreads.power;
}

void Analysis::AddSpreads(std::uint32_t row, BinRange asked) const {
    // The other bands will be asked for as well, and one walk over the epochs serves them all.
    std::vector<BinRange> ranges = DefinedBands(Resolution(), Bins());
    ranges.push_back(asked);
    std::vector<RunningSpread> powers(ranges.size()), amplitudes(ranges.size());
    epochs_->ForEach(row, [&](std::span<const float> power) {
        for (std::size_t i = 0; i < ranges.size(); ++i) {
            const auto band = power.subspan(ranges[i].first, ranges[i].last - ranges[i].first);
            const double sum = std::accumulate(band.begin(), band.end(), 0.0) * Resolution();
            powers[i].Add(sum);
            amplitudes[i].Add(std::sqrt(sum));
        }
    });
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        spreads_[{row, ranges[i].first, ranges[i].last}] = {powers[i].Get(), amplitudes[i].Get()};
    }
}

} // namespace orvanta::spectral
