// SPDX-License-Identifier: GPL-3.0-or-later
// The computed data of one analysis.
#pragma once

#include "host/signal_base/recording.h"
#include "host/spectral_data/compute_options.h"
#include "host/spectral_data/results/epoch_plan.h"
#include "host/spectral_data/results/epoch_spectra.h"
#include "host/spectral_data/results/montage_nodes.h"
#include "spectra_contract/api.h"
#include "spectra_contract/montage.h"
#include "spectra_contract/spectra_macro.h"
#include "spectra_contract/spectra_types.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

class GenericProgress;

namespace orvanta::spectral {

/// What an analysis is computed from.
struct AnalysisInput {
    std::shared_ptr<const signal::Recording> recording;
    SpectraMacro macro;
    MontageType montage;
    EpochPlan plan;
    ComputeOptions options;
};

/// Mean and standard deviation over the epochs.
struct Spread {
    double mean = 0;
    double sd = 0;
};

/// The spectra of one recording under one set of settings and one montage. Does not change once computed. Not
/// for several threads at once: epochs that were not kept are computed again when they are asked for.
class ORVANTA_API Analysis {
public:
    /// Computes in one pass over the recording. Null when cancelled. \param progress may be null
    /// \throws NothingComputable without an epoch; std::runtime_error for an unknown taper, spectra that
    /// would not fit into memory, or a failing read
    static std::shared_ptr<const Analysis> Compute(AnalysisInput input, GenericProgress* progress);

    const AnalysisInput& Input() const { return input_; }
    const signal::Recording& Recording() const { return *input_.recording; }
    const SpectraMacro& Macro() const { return input_.macro; }
    const MontageType& Montage() const { return input_.montage; }
    const WindowGeometry& Geometry() const { return input_.plan.geometry; }
    /// First sample of each epoch, ascending.
    const std::vector<std::int64_t>& EpochStarts() const { return input_.plan.starts; }
    std::uint64_t EpochCount() const { return EpochStarts().size(); }
    XTimeInterval EpochTime(std::uint64_t epoch) const;
    /// Bins 0 … p/2.
    std::uint32_t Bins() const { return result_.bins; }
    /// fs/p in Hz.
    double Resolution() const;
    /// The EEG sensors in recording order.
    const std::vector<const SensorType*>& Sensors() const { return nodes_.sensors; }
    /// The montage's channels with their rows, in the montage's order; empty when channels were left out.
    const std::vector<MontageNodes::Channel>& Channels() const { return nodes_.channels; }

    /// Where the numbers of a sensor, or of a channel equal to one of the montage's, are; none when it was
    /// not analysed.
    std::optional<TraceRow> Row(const SensorType* sensor) const;
    std::optional<TraceRow> Row(const ChnType* channel) const;
    /// Index in Channels() of the channel that equals \p channel.
    std::optional<std::size_t> IndexOf(const ChnType* channel) const;

    /// Mean over the epochs at a bin, in the entity's unit; NaN when not computable or not asked for when
    /// computing. Power and amplitude: mean of the epochs' values. Coherence |Sxy|/√(Sxx·Syy), 0 … 1, and
    /// phase arg Sxy, −π … π, Sxy the epochs' mean of conj(X)·Y, x the first and y the second electrode: NaN
    /// without a second electrode, for a single epoch, and where Sxx or Syy is 0.
    double MeanAt(SPECT::Entity::Type entity, TraceRow trace, std::uint64_t bin) const;
    /// Standard deviation over the epochs (n − 1) of power or amplitude at a bin; NaN for a single epoch,
    /// coherence and phase.
    double SdAt(SPECT::Entity::Type entity, TraceRow trace, std::uint64_t bin) const;
    std::vector<double> MeanOf(SPECT::Entity::Type entity, TraceRow trace) const;
    std::vector<double> SdOf(SPECT::Entity::Type entity, TraceRow trace) const;
    /// Mean and sum of squared deviations of ln power at a bin; NaN where the power of an epoch is 0 or
    /// statistics were left out.
    std::pair<double, double> LogPowerAt(TraceRow trace, std::uint64_t bin) const;
    /// Spread over the epochs of the band's Abs: of the summed power in µV², or of its square root in µV for
    /// amplitude. NaN for coherence and phase and for a band without a bin; its SD NaN for a single epoch.
    Spread AbsSpread(SPECT::Entity::Type entity, TraceRow trace, double lo_hz, double hi_hz) const;

    /// Effective number of independent epochs, of power and coherence.
    double EffectiveCount() const { return effective_; }
    /// The same of ln power, for t-tests.
    double EffectiveLogCount() const { return effectiveLog_; }
    /// The epochs one by one.
    const EpochSpectra& Epochs() const { return *epochs_; }

private:
    Analysis() = default;

    double CoherenceOrPhase(bool phase, TraceRow trace, std::uint64_t bin) const;
    const Moments* MomentsOf(SPECT::Entity::Type entity) const;

    AnalysisInput input_;
    MontageNodes nodes_;
    std::unordered_map<const SensorType*, std::uint32_t> rowOfSensor_;
    std::unordered_multimap<std::string, std::size_t> channelOfName_;
    std::vector<BinRange> bands_; ///< those with moments in result_.band_power
    EngineResult result_;
    double effective_ = 0;
    double effectiveLog_ = 0;
    std::unique_ptr<EpochSpectra> epochs_;

    using BandKey = std::array<std::uint32_t, 3>; ///< row, first bin, bin behind the last
    struct BandSpreads {
        Spread power, amplitude;
    };
    void AddSpreads(std::uint32_t row, BinRange asked) const;
    mutable std::map<BandKey, BandSpreads> spreads_; ///< bands worked out epoch by epoch
};

} // namespace orvanta::spectral
