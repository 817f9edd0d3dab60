// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spectrum.h"

#include "host/spectral_data/not_computable.h"
#include "host/spectral_data/results/spectrum_impl.h"
#include "host/spectral_data/statistics/measures.h"
#include "spectra_contract/montage.h"
#include "spectra_contract/sensor.h"
#include "spectra_contract/spect_globals.h"

#include <cmath>
#include <stdexcept>
#include <utility>

namespace orvanta::spectral {

namespace {

using SPECT::Entity::Type;

class OverEpochs final : public SpectrumSingle::Impl {
public:
    OverEpochs(std::shared_ptr<const Analysis> analysis, TraceRow trace)
        : analysis_(std::move(analysis)), trace_(trace) {}

    std::uint32_t Bins() const override { return analysis_->Bins(); }
    double Resolution() const override { return analysis_->Resolution(); }
    double MeanAt(Type entity, std::uint64_t bin) const override {
        return analysis_->MeanAt(entity, trace_, bin);
    }
    double SdAt(Type entity, std::uint64_t bin) const override {
        return analysis_->SdAt(entity, trace_, bin);
    }
    Spread AbsSpread(Type entity, double lo, double hi) const override {
        return analysis_->AbsSpread(entity, trace_, lo, hi);
    }

private:
    std::shared_ptr<const Analysis> analysis_;
    TraceRow trace_;
};

class OfOneEpoch final : public SpectrumSingle::Impl {
public:
    OfOneEpoch(std::span<const float> power, double resolution)
        : power_(power.begin(), power.end()), resolution_(resolution) {}

    std::uint32_t Bins() const override { return static_cast<std::uint32_t>(power_.size()); }
    double Resolution() const override { return resolution_; }
    double MeanAt(Type entity, std::uint64_t bin) const override {
        return bin < power_.size() ? EpochValue(entity, power_[bin]) : kNaN;
    }
    double SdAt(Type, std::uint64_t) const override { return kNaN; }
    Spread AbsSpread(Type, double, double) const override { return {kNaN, kNaN}; }

private:
    std::vector<float> power_;
    double resolution_;
};

} // namespace

std::optional<std::pair<double, double>> BandEdges(int band) {
    const SPECT::Globals& globals = SPECT::GetGlobals();
    if (band == -1) {
        return std::pair(globals.TotalLo, globals.TotalHi);
    }
    if (band < 0 || band >= static_cast<int>(SPECT::BandCount)) {
        return std::nullopt;
    }
    return std::pair(globals.Bands[band].lo, globals.Bands[band].hi);
}

std::shared_ptr<const SpectrumSingle::Impl> MeanSpectrum(std::shared_ptr<const Analysis> analysis,
                                                         TraceRow trace) {
    return std::make_shared<OverEpochs>(std::move(analysis), trace);
}

double EpochValue(Type entity, float power) {
    switch (entity) {
    case Type::Power:
        return power;
    case Type::Amplitude:
        return std::sqrt(static_cast<double>(power));
    case Type::Coherence:
    case Type::Phase:
        break;
    }
    return kNaN;
}

std::shared_ptr<const SpectrumSingle::Impl> EpochSpectrum(std::span<const float> power, double resolution) {
    return std::make_shared<OfOneEpoch>(power, resolution);
}

} // namespace orvanta::spectral

using orvanta::spectral::BandMeasure;
using orvanta::spectral::MeasureInput;

std::span<const double> SpectrumSingle::Impl::Mean(SPECT::Entity::Type entity) const {
    std::vector<double>& values = means_.at(static_cast<std::size_t>(entity));
    if (values.empty()) {
        values.resize(Bins());
        for (std::uint32_t bin = 0; bin < values.size(); ++bin) {
            values[bin] = MeanAt(entity, bin);
        }
    }
    return values;
}

SpectrumSingle::SpectrumSingle(std::shared_ptr<const Impl> impl) : impl_(std::move(impl)) {}
SpectrumSingle::~SpectrumSingle() = default;

double SpectrumSingle::GetValue(std::uint64_t bin) const {
    return impl_->MeanAt(SPECT::GetGlobals().GetMeasEntity(), bin);
}

void SpectrumSingle::GetSpect(std::vector<double>& values) const {
    const std::span<const double> means = impl_->Mean(SPECT::GetGlobals().GetMeasEntity());
    values.assign(means.begin(), means.end());
}

void SpectrumSingle::GetSpectSD(std::vector<double>& values) const {
    const SPECT::Entity::Type entity = SPECT::GetGlobals().GetMeasEntity();
    values.resize(impl_->Bins());
    for (std::uint32_t bin = 0; bin < values.size(); ++bin) {
        values[bin] = impl_->SdAt(entity, bin);
    }
}

double SpectrumSingle::GetMeasure(int band, SPECT::Meas::Type measure) const {
    const auto edges = orvanta::spectral::BandEdges(band);
    if (!edges) {
        return orvanta::spectral::kNaN;
    }
    const auto [lo, hi] = *edges;
    const SPECT::Globals& globals = SPECT::GetGlobals();
    MeasureInput input;
    input.entity = globals.GetMeasEntity();
    input.resolution_hz = impl_->Resolution();
    input.values = impl_->Mean(globals.GetMeasEntity());
    input.power = impl_->Mean(SPECT::Entity::Type::Power);
    input.total_lo = globals.TotalLo;
    input.total_hi = globals.TotalHi;
    if (measure == SPECT::Meas::Type::CV) {
        try {
            const auto spread = impl_->AbsSpread(input.entity, lo, hi);
            input.abs_mean = spread.mean;
            input.abs_sd = spread.sd;
        } catch (
            const std::runtime_error&) { // the file went away or changed: nothing to tell the spread from
            return orvanta::spectral::kNaN;
        }
    }
    return BandMeasure(input, lo, hi, measure);
}

SpectSample SpectrumSingle::GetSample(std::uint64_t bin) const {
    return {impl_->MeanAt(SPECT::Entity::Type::Coherence, bin),
            impl_->MeanAt(SPECT::Entity::Type::Phase, bin)};
}

SpectrumSens::SpectrumSens(std::shared_ptr<const Impl> impl, const SensorType* sensor)
    : SpectrumSingle(std::move(impl)), sensor_(sensor) {}

const std::string& SpectrumSens::GetName() const {
    return sensor_->GetName();
}

SpectrumChn::SpectrumChn(std::shared_ptr<const Impl> impl, std::shared_ptr<const ChnType> channel)
    : SpectrumSingle(std::move(impl)), channel_(std::move(channel)) {}

const std::string& SpectrumChn::GetName() const {
    return channel_->GetName();
}
