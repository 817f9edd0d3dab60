// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/comparison_report.h"

#include "host/review/cli/band_table.h"
#include "host/review/cli/macro_keys.h"
#include "host/review/cli/output.h"
#include "host/spectral_data/files/number_text.h"
#include "host/spectral_data/not_computable.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <map>
#include <optional>

namespace orvanta::cli {

namespace {

using spectral::kNaN;
constexpr double kLevel = 0.05;

std::optional<spectral::TraceComparison> CompareTrace(const Comparison& c, const Trace& trace) {
    const auto& main = *c.main.GetAnalysis();
    const auto& secondary = *c.secondary.GetAnalysis();
    const SPECT::Entity::Type entity = c.manager.GetMeasEntity();
    return trace.sensor != nullptr ? spectral::CompareTrace(main, secondary, trace.sensor, entity)
                                   : spectral::CompareTrace(main, secondary, trace.channel, entity);
}

const SpectrumSingle* SecondaryOf(const Comparison& c, const Trace& trace) {
    return trace.sensor != nullptr ? c.secondary.GetSpectrum(trace.sensor)
                                   : c.secondary.GetSpectrum(trace.channel);
}

double SecondaryMeasure(const Comparison& c, const Trace& trace, unsigned band, SPECT::Meas::Type measure) {
    const SpectrumSingle* spectrum = SecondaryOf(c, trace);
    return spectrum == nullptr ? kNaN : spectrum->GetMeasure(static_cast<int>(band), measure);
}

double RatioOf(double main, double secondary) {
    return secondary == 0 || !std::isfinite(main) || !std::isfinite(secondary) ? kNaN : main / secondary;
}

/// Per band: percent of its bins with p below the level; NaN without a bin that has a p.
class SignificantShare {
public:
    explicit SignificantShare(const Comparison& comparison) : comparison_(comparison) {}

    double operator()(const Trace& trace, unsigned band) {
        const std::vector<double>& p = PValues(trace);
        const SPECT::Band& edges = comparison_.manager.GetBand(band);
        double bins = 0;
        double significant = 0;
        for (std::size_t bin = 0; bin < p.size(); ++bin) {
            const double hz = comparison_.main.GetFreqFromIndex(bin);
            if (hz >= edges.lo && hz < edges.hi && !std::isnan(p[bin])) {
                bins += 1;
                significant += p[bin] < kLevel;
            }
        }
        return bins == 0 ? kNaN : 100 * significant / bins;
    }

private:
    const std::vector<double>& PValues(const Trace& trace) {
        const auto [entry, isNew] = cache_.try_emplace(trace.spectrum);
        if (isNew) {
            if (auto compared = CompareTrace(comparison_, trace)) {
                entry->second = std::move(compared->p);
            }
        }
        return entry->second;
    }

    const Comparison& comparison_;
    std::map<const SpectrumSingle*, std::vector<double>> cache_;
};

} // namespace

JsonObject ToJson(const Comparison& c) {
    JsonObject json = ToJson(c.recording, c.manager, c.main, [&](const Trace& trace, JsonObject& object) {
        if (const SpectrumSingle* secondary = SecondaryOf(c, trace)) {
            std::vector<double> values;
            secondary->GetSpect(values);
            object.AddNumbers("secondary_mean", values);
            secondary->GetSpectSD(values);
            object.AddNumbers("secondary_sd", values);
        }
        if (const auto compared = CompareTrace(c, trace)) {
            object.AddNumbers("p", compared->p);
            object.AddNumbers("ratio", compared->ratio);
            object.AddNumbers("t", compared->t);
            object.AddNumbers("df", compared->df);
        }
    });
    json.Add("secondary", {{"settings", KeysToJson(c.secondary.GetMacro())},
                           {"fft_count", c.secondary.GetFFTCount()},
                           {"epochs", EpochsToJson(c.secondary, c.recording)}});
    const SPECT::Entity::Type entity = c.manager.GetMeasEntity();
    json.Add("n_eff", {{"main", spectral::EffectiveCountOf(*c.main.GetAnalysis(), entity)},
                       {"secondary", spectral::EffectiveCountOf(*c.secondary.GetAnalysis(), entity)}});
    return json;
}

std::string ToCsv(const Comparison& c) {
    std::string csv = CsvHeading();
    SignificantShare share(c);
    ForEachTrace(c.main, [&](const Trace& trace) {
        const std::string& name = trace.spectrum->GetName();
        ForEachMeasure(c.manager, [&](unsigned band, SPECT::Meas::Type measure) {
            const char* bandName = c.manager.GetBand(band).name;
            const std::string measureName = c.manager.GetBandMeasName(static_cast<unsigned>(measure));
            const std::string unit = c.manager.GetBandMeasUnit(measure);
            const double main = trace.spectrum->GetMeasure(static_cast<int>(band), measure);
            const double secondary = SecondaryMeasure(c, trace, band, measure);
            if (measure == SPECT::Meas::Type::Abs) {
                csv += CsvLine({name, trace.kind, bandName, "bins with p < 0.05",
                                spectral::NumberText(share(trace, band)), "%"});
            }
            csv += CsvLine(
                {name, trace.kind, bandName, "main " + measureName, spectral::NumberText(main), unit});
            csv += CsvLine({name, trace.kind, bandName, "secondary " + measureName,
                            spectral::NumberText(secondary), unit});
            csv += CsvLine({name, trace.kind, bandName, "ratio " + measureName,
                            spectral::NumberText(RatioOf(main, secondary)), ""});
        });
    });
    return csv;
}

std::string ToText(const Comparison& c) {
    const SPECT::Entity::Type entity = c.manager.GetMeasEntity();
    const auto effective = [&](const SpectMacroResult& analysis) {
        return " (worth " + FixedText(spectral::EffectiveCountOf(*analysis.GetAnalysis(), entity), 1) +
               " independent ones)\n";
    };
    std::string text = Heading(c.recording, c.main);
    text += "Main: " + c.main.GetName() + ", " + Counted(c.main.GetFFTCount(), "epoch") + effective(c.main);
    text += "Secondary: " + c.secondary.GetName() + ", " + Counted(c.secondary.GetFFTCount(), "epoch") +
            effective(c.secondary) + "\n";

    const SPECT::Meas::Type measure = TableMeasures(entity).front();
    const std::string measured = measure == SPECT::Meas::Type::Mean
                                     ? c.manager.GetCurrMeasEntityStr()
                                     : c.manager.GetBandMeasName(static_cast<unsigned>(measure));
    const auto ratio = [&](const Trace& trace, unsigned band) {
        return RatioOf(trace.spectrum->GetMeasure(static_cast<int>(band), measure),
                       SecondaryMeasure(c, trace, band, measure));
    };
    std::vector<TableBlock> blocks = {{measured + ", main / secondary", ratio, 2}};
    if (entity != SPECT::Entity::Type::Phase) {
        blocks.push_back({"Bins with p < 0.05 [%]", SignificantShare(c), 0});
    }
    return text + BandTable(c.manager, c.main, blocks);
}

} // namespace orvanta::cli
