// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/traces/mean_plots.h"

#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/painting/labels.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvanta::spectrum_view {

namespace {

constexpr owl::TColor kOrange = owl::Rgb(213, 94, 0);
constexpr double kDegreesPerRadian = 180 / std::numbers::pi;

bool InDegrees(const PlotSources& sources) {
    return sources.manager.GetMeasEntity() == SPECT::Entity::Type::Phase && sources.display.degrees;
}

FrequencyAxis AxisIn(const PlotSources& sources, const SpectMacroResult& analysis) {
    return AxisOf(analysis, sources.display.range.bottom, sources.display.range.top);
}

RangeRules RulesOf(const PlotSources& sources) {
    const auto& scales = sources.view.scales;
    const auto scale = scales.find(sources.manager.GetCurrMeasEntityStr());
    return {sources.manager.GetMeasEntity(), sources.display.mode, sources.display.degrees,
            scale == scales.end() ? SPECT::Scale() : scale->second, sources.display.gain};
}

std::vector<double> ValuesOf(const SpectrumSingle* spectrum) {
    std::vector<double> values;
    if (spectrum != nullptr) {
        spectrum->GetSpect(values);
    }
    return values;
}

/// As for a bad electrode. Values that were never computed are another matter, told for the whole page.
bool IsNotComputable(const SpectrumSingle& spectrum) {
    const std::vector<double> values = ValuesOf(&spectrum);
    return !values.empty() && std::ranges::none_of(values, [](double value) { return std::isfinite(value); });
}

/// Searches the shown bins of both spectra of a trace.
class TraceSearch {
public:
    explicit TraceSearch(const PlotSources& sources) : main_(AxisIn(sources, *sources.manager.GetMain())) {
        if (const SpectMacroResult* secondary = sources.manager.GetSecondary()) {
            secondary_ = AxisIn(sources, *secondary);
        }
    }

    void Include(const TraceEntry& entry, ValueSearch& search) const {
        search.Include(ValuesOf(entry.main), main_);
        search.Include(ValuesOf(entry.secondary), secondary_);
    }

private:
    FrequencyAxis main_;
    FrequencyAxis secondary_;
};

/// Vertical ranges in the order of the entries.
std::vector<VerticalRange> RangesOf(const PlotSources& sources, std::span<const TraceEntry> entries) {
    const RangeRules rules = RulesOf(sources);
    const TraceSearch searcher(sources);
    std::vector<ValueSearch> found(entries.size());
    ValueSearch ofAll;
    for (std::size_t i = 0; IsSearched(rules) && i < entries.size(); ++i) {
        searcher.Include(entries[i], sources.view.commonScale ? ofAll : found[i]);
    }
    std::vector<VerticalRange> ranges;
    ranges.reserve(found.size());
    for (const ValueSearch& ofTrace : found) {
        ranges.push_back(RangeOf(rules, sources.view.commonScale ? ofAll : ofTrace));
    }
    return ranges;
}

PlotFlags FlagsOf(const DisplaySettings& display) {
    return {display.showPoints, display.showLines, display.showSd, display.showLabels, display.showAxesText};
}

void ToDegrees(std::vector<double>& values) {
    for (double& value : values) {
        value *= kDegreesPerRadian;
    }
}

std::vector<double> Copy(const double* values, std::size_t count) {
    return values == nullptr ? std::vector<double>() : std::vector<double>(values, values + count);
}

/// What all curves of one analysis share.
struct CurveSource {
    FrequencyAxis axis;
    std::vector<PlotBand> bands;
    owl::TColor color = 0;
};

CurveSource SourceOf(const PlotSources& sources, const SpectMacroResult& analysis, owl::TColor color) {
    return {AxisIn(sources, analysis), BandsOf(sources.manager, analysis), color};
}

PlotCurve CurveOf(const PlotSources& sources, const CurveSource& source, const SpectrumSingle& spectrum) {
    PlotCurve curve{source.axis, source.bands, {}, {}, source.color};
    spectrum.GetSpect(curve.values);
    if (sources.display.showSd) {
        spectrum.GetSpectSD(curve.sd);
    }
    if (InDegrees(sources)) {
        ToDegrees(curve.values);
        ToDegrees(curve.sd);
    }
    return curve;
}

} // namespace

TraceColors ColorsOf(const SpectraMgr& manager) {
    const owl::TColor main = manager.GetMain()->GetMacro().Color;
    const SpectMacroResult* secondary = manager.GetSecondary();
    const owl::TColor other = secondary == nullptr ? kOrange : secondary->GetMacro().Color;
    return {main, other == main ? kOrange : other};
}

std::vector<SlotFrame> FramesOf(const PlotSources& sources, std::span<const TraceEntry> entries) {
    const std::string unit = InDegrees(sources) ? "°" : sources.manager.GetCurrEntityMeasUnit();
    const std::vector<VerticalRange> ranges = RangesOf(sources, entries);
    std::vector<SlotFrame> frames;
    frames.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const SpectrumSingle* spectrum = entries[i].main;
        SlotFrame frame{entries[i].rectangle, {}, {}, unit, sources.font, {}, FlagsOf(sources.display)};
        if (spectrum != nullptr) {
            frame.label = TraceLabel(spectrum->GetName(), unit);
            frame.vertical = ranges[i];
            frame.notice = IsNotComputable(*spectrum) ? "n/a" : "";
        }
        frames.push_back(std::move(frame));
    }
    return frames;
}

std::vector<PlotInput> MeanPlotsOf(const PlotSources& sources, std::span<const TraceEntry> entries) {
    const SpectMacroResult& main = *sources.manager.GetMain();
    const SpectMacroResult* secondary = sources.manager.GetSecondary();
    const TraceColors colors = ColorsOf(sources.manager);
    const CurveSource ofMain = SourceOf(sources, main, colors.main);
    const CurveSource ofSecondary =
        secondary == nullptr ? CurveSource() : SourceOf(sources, *secondary, colors.secondary);
    const auto bins = static_cast<std::size_t>(main.GetFFTSamples() / 2 + 1);

    std::vector<SlotFrame> frames = FramesOf(sources, entries);
    std::vector<PlotInput> plots;
    plots.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        PlotInput plot;
        plot.frame = std::move(frames[i]);
        plot.normalisation = sources.display.normalisation;
        plot.ratioName = sources.ratioName;
        plot.pThreshold = sources.manager.GetPThreshold();
        if (entries[i].main != nullptr) {
            plot.curves.push_back(CurveOf(sources, ofMain, *entries[i].main));
            plot.p = Copy(PValuesOf(sources.manager, entries[i].main), bins);
            plot.ratio = Copy(RatioOf(sources.manager, entries[i].main), bins);
        }
        if (entries[i].main != nullptr && entries[i].secondary != nullptr) {
            plot.curves.push_back(CurveOf(sources, ofSecondary, *entries[i].secondary));
        }
        plots.push_back(std::move(plot));
    }
    return plots;
}

} // namespace orvanta::spectrum_view
