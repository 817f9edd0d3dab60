// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/traces/over_time_plots.h"

#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <string>

namespace orvanta::spectrum_view {

namespace {

std::size_t MostRows(std::span<const TraceEntry> entries) {
    int longest = 1;
    for (const TraceEntry& entry : entries) {
        longest = std::max({longest, entry.rectangle.Width(), entry.rectangle.Height()});
    }
    return std::bit_ceil(static_cast<std::size_t>(longest));
}

/// Clock time of the recording's first sample, seconds since midnight; 0 when it has no start time.
double StartOfDay(const EEGFileInfoType& recording) {
    const TraceCursorType& cursor = *recording.GetTraceCursor();
    const std::string clock = cursor.GetTimeStrFromSmpl(Sample::Mode::Memory, cursor.GetMemDataSR(), 0,
                                                        XTime::DTMode::Time, XTime::ARMode::Clock);
    constexpr double kSecondsOf[] = {3600, 60, 1, 0.001};
    double seconds = 0;
    const char* at = clock.data();
    const char* const end = at + clock.size();
    for (const double unit : kSecondsOf) {
        unsigned count = 0;
        const auto [next, error] = std::from_chars(at, end, count);
        if (error != std::errc()) {
            return 0;
        }
        seconds += count * unit;
        at = next < end ? next + 1 : end;
    }
    return seconds;
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

    const double startOfDay = StartOfDay(recording);

    std::vector<SlotFrame> frames = FramesOf(sources, entries);
    std::map<const SpectrumSingle*, SpectraOverTime> ofPage;
    std::vector<OverTimeInput> plots;
    plots.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const SpectrumSingle* spectrum = entries[i].main;
        OverTimeInput plot{std::move(frames[i]), axis, bands, {}, color, begin, end, startOfDay};
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
