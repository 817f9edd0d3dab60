// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/traces/trace_list.h"

#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"

namespace orvanta::spectrum_view {

namespace {

/// The spectra of a sensor or channel in both analyses.
template <typename Trace>
TraceEntry EntryOf(const SpectraMgr& manager, const Trace* trace) {
    const SpectMacroResult* secondary = manager.GetSecondary();
    return {manager.GetMain()->GetSpectrum(trace),
            secondary == nullptr ? nullptr : secondary->GetSpectrum(trace),
            {}};
}

std::vector<TraceEntry> ChannelEntries(const SpectraMgr& manager, const MontageType& montage) {
    std::vector<TraceEntry> entries;
    for (auto channel = montage.BeginChn(); channel != montage.EndChn(); ++channel) {
        const TraceEntry entry = EntryOf<ChnType>(manager, channel->get());
        if (entry.main != nullptr && (*channel)->AcceptsSpectrum(entry.main)) {
            entries.push_back(entry);
        }
    }
    return entries;
}

std::vector<TraceEntry> SensorEntries(const SpectraMgr& manager, const EEGFileInfoType& recording) {
    SensorList sensors;
    recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    std::vector<TraceEntry> entries;
    entries.reserve(sensors.size());
    for (const SensorType* sensor : sensors) {
        entries.push_back(EntryOf(manager, sensor));
    }
    return entries;
}

} // namespace

TraceList::TraceList(const SpectraMgr& manager, std::vector<TraceEntry> entries)
    : entries_(std::move(entries)), generations_(Of(manager)) {}

TraceList::Generations TraceList::Of(const SpectraMgr& manager) {
    const SpectMacroResult* main = manager.GetMain();
    const SpectMacroResult* secondary = manager.GetSecondary();
    return {main == nullptr ? 0 : main->GetGeneration(),
            secondary == nullptr ? 0 : secondary->GetGeneration()};
}

bool TraceList::IsCurrent(const SpectraMgr& manager) const {
    return generations_.main != 0 && generations_ == Of(manager);
}

std::span<const TraceEntry> TraceList::Entries(const SpectraMgr& manager) const {
    return IsCurrent(manager) ? std::span(entries_) : std::span<const TraceEntry>();
}

std::span<TraceEntry> TraceList::Entries(const SpectraMgr& manager) {
    return IsCurrent(manager) ? std::span(entries_) : std::span<TraceEntry>();
}

std::optional<TraceList> CephalicList(const SpectraMgr& manager, const EEGFileInfoType& recording) {
    if (manager.GetMain() == nullptr) {
        return std::nullopt;
    }
    const MontageType& montage = recording.GetTraceInfo()->GetMtg();
    return TraceList(manager, montage.IsMappable() ? ChannelEntries(manager, montage)
                                                   : SensorEntries(manager, recording));
}

TraceList BipolarList(const SpectraMgr& manager, const EEGFileInfoType& recording, std::uint64_t firstTrace,
                      const GridSize& grid) {
    std::vector<TraceEntry> entries;
    if (manager.GetMain() == nullptr) {
        return TraceList(manager, {});
    }
    const MontageType& montage = recording.GetTraceInfo()->GetMtg();
    const std::uint64_t count = manager.GetMain()->GetNumBip();
    entries.reserve(grid.Cells());
    for (std::uint64_t slot = 0; slot < grid.Cells(); ++slot) {
        const std::uint64_t index = firstTrace + slot;
        const ChnType* channel = index < count ? montage.GetChn(index) : nullptr;
        entries.push_back(channel == nullptr ? TraceEntry() : EntryOf(manager, channel));
    }
    return TraceList(manager, std::move(entries));
}

const std::string& PositionName(const SpectrumSingle& spectrum, bool mappable) {
    const auto* ofChannel = mappable ? dynamic_cast<const SpectrumChn*>(&spectrum) : nullptr;
    return ofChannel == nullptr ? spectrum.GetName() : ofChannel->GetChn()->GetLabelPos();
}

const double* PValuesOf(const SpectraMgr& manager, const SpectrumSingle* spectrum) {
    if (const auto* ofChannel = dynamic_cast<const SpectrumChn*>(spectrum)) {
        return manager.GetP(ofChannel->GetChn());
    }
    const auto* ofSensor = dynamic_cast<const SpectrumSens*>(spectrum);
    return ofSensor == nullptr ? nullptr : manager.GetP(ofSensor->GetSensor());
}

const double* RatioOf(const SpectraMgr& manager, const SpectrumSingle* spectrum) {
    if (const auto* ofChannel = dynamic_cast<const SpectrumChn*>(spectrum)) {
        return manager.GetRatio(ofChannel->GetChn());
    }
    const auto* ofSensor = dynamic_cast<const SpectrumSens*>(spectrum);
    return ofSensor == nullptr ? nullptr : manager.GetRatio(ofSensor->GetSensor());
}

} // namespace orvanta::spectrum_view
