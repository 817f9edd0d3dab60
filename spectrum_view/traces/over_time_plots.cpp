// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/traces/over_time_plots.h"

#include "spectra_contract/spectra_mgr.h"

#include <algorithm>
#include <bit>

namespace orvanta::spectrum_view {

namespace {

std::size_t MostRows(std::span<const TraceEntry> entries) {
    int longest = 1;
    for (const TraceEntry& entry : entries) {
        longest = std::max({longest, entry.rectangle.Width(), entry.rectangle.Height()});
    }
    return std::bit_ceil(static_cast<std::size_t>(longest));
}

} // namespace

std::vector<OverTimeInput> OverTimePlots::Of(const PlotSources& sources, EEGFileInfoType& recording,
                                             std::span<const TraceEntry> entries) {
    const SpectMacroResult& main = *sources.manager.GetMain();
    const Key wanted{main.GetGeneration(), sources.manager.GetMeasEntity(), MostRows(entries)};
    if (!(key_ == wanted)) {
        spectra_.clear();
        groups_ = GroupEpochs(EpochSpans(main, recording), wanted.mostRows);
        key_ = wanted;
    }
    const FrequencyAxis axis = AxisOf(main, sources.display.range.bottom, sources.display.range.top);
    const std::vector<PlotBand> bands = BandsOf(sources.manager, main);
    const owl::TColor color = ColorsOf(sources.manager).main;
    const double begin = groups_.empty() ? 0 : groups_.front().span.begin_s;
    const double end = groups_.empty() ? 0 : groups_.back().span.end_s;

    std::vector<SlotFrame> frames = FramesOf(sources, entries);
    std::map<const SpectrumSingle*, SpectraOverTime> ofPage;
    std::vector<OverTimeInput> plots;
    plots.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const SpectrumSingle* spectrum = entries[i].main;
        OverTimeInput plot{std::move(frames[i]), axis, bands, {}, color, begin, end};
        if (spectrum != nullptr) {
            auto known = spectra_.extract(spectrum);
            plot.spectra =
                known ? ofPage.insert(std::move(known)).position->second
                      : ofPage.try_emplace(spectrum, SpectraOf(main, *spectrum, groups_)).first->second;
        }
        plots.push_back(std::move(plot));
    }
    spectra_ = std::move(ofPage);
    return plots;
}

} // namespace orvanta::spectrum_view
