// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/report.h"

#include "host/review/cli/band_table.h"
#include "host/review/cli/macro_keys.h"
#include "host/review/cli/output.h"
#include "host/signal_base/recording.h"
#include "host/spectral_data/files/number_text.h"
#include "host/spectral_data/results/analysis.h"
#include "spectra_contract/spect_globals.h"

#include <nlohmann/json.hpp>

#include <map>
#include <memory>
#include <vector>

namespace orvanta::cli {

namespace {

using Json = nlohmann::ordered_json;

Json BandJson(const std::string& name, double low, double high) {
    Json band = {{"name", name}, {"low_hz", low}, {"high_hz", high}};
    return band;
}

Json MeasuresToJson(const SpectraMgr& manager, const SpectrumSingle& spectrum) {
    Json measures = Json::array();
    ForEachMeasure(manager, [&](unsigned band, SPECT::Meas::Type measure) {
        measures.push_back({{"band", manager.GetBand(band).name},
                            {"measure", manager.GetBandMeasName(static_cast<unsigned>(measure))},
                            {"value", spectrum.GetMeasure(static_cast<int>(band), measure)},
                            {"unit", manager.GetBandMeasUnit(measure)}});
    });
    return measures;
}

JsonObject NumbersToJson(const SpectraMgr& manager, const Trace& trace, const TraceExtra& extra) {
    std::vector<double> values;
    JsonObject object;
    trace.spectrum->GetSpect(values);
    object.AddNumbers("mean", values);
    trace.spectrum->GetSpectSD(values);
    object.AddNumbers("sd", values);
    if (extra) {
        extra(trace, object);
    }
    object.Add("measures", MeasuresToJson(manager, *trace.spectrum));
    return object;
}

/// Traces as JSON. A channel that is a sensor's own has the sensor's numbers, which are then written once
/// only.
class TraceTexts {
public:
    TraceTexts(const SpectraMgr& manager, const SpectMacroResult& analysis, const TraceExtra& extra)
        : manager_(manager), analysis_(analysis.GetAnalysis()), extra_(extra) {}

    JsonObject Of(const Trace& trace) {
        const auto row =
            trace.sensor != nullptr ? analysis_->Row(trace.sensor) : analysis_->Row(trace.channel);
        const auto [entry, isNew] = numbers_.try_emplace(*row);
        if (isNew) {
            entry->second = NumbersToJson(manager_, trace, extra_);
        }
        JsonObject object;
        object.Add("name", trace.spectrum->GetName());
        object.AddMembers(entry->second);
        return object;
    }

private:
    const SpectraMgr& manager_;
    std::shared_ptr<const spectral::Analysis> analysis_;
    const TraceExtra& extra_;
    std::map<spectral::TraceRow, JsonObject> numbers_;
};

} // namespace

void ForEachTrace(const SpectMacroResult& analysis, const std::function<void(const Trace&)>& visit) {
    for (const auto& [sensor, spectrum] : analysis.GetSensorMap()) {
        visit({"sensor", &spectrum, sensor, nullptr});
    }
    const MontageType& montage = analysis.GetMontage();
    for (auto channel = montage.BeginChn(); channel != montage.EndChn(); ++channel) {
        if (const SpectrumSingle* spectrum = analysis.GetSpectrum(channel->get())) {
            visit({"channel", spectrum, nullptr, channel->get()});
        }
    }
}

void ForEachMeasure(const SpectraMgr& manager,
                    const std::function<void(unsigned, SPECT::Meas::Type)>& visit) {
    for (unsigned band = 0; band < SPECT::BandCount; ++band) {
        for (unsigned m = 0; manager.GetBand(band).IsDefined() && m < SPECT::Meas::Count; ++m) {
            visit(band, static_cast<SPECT::Meas::Type>(m));
        }
    }
}

Json EpochsToJson(const SpectMacroResult& analysis, EEGFileInfoType& recording) {
    XTimeList list;
    analysis.GetEventList(&recording, list, nullptr);
    Json epochs = Json::array();
    for (const XTimeItem& item : list) {
        epochs.push_back({{"begin_s", item.Interval.GetBeginPtr()->Seconds()},
                          {"end_s", item.Interval.GetEndPtr()->Seconds()}});
    }
    return epochs;
}

JsonObject ToJson(EEGFileInfoType& recording, const SpectraMgr& manager, const SpectMacroResult& analysis,
                  const TraceExtra& extra) {
    JsonObject json;
    json.Add("file", recording.GetRecording()->Data().path);
    json.Add("settings", KeysToJson(analysis.GetMacro()));
    json.Add("montage", analysis.GetMontage().GetName());
    json.Add("entity", manager.GetCurrMeasEntityStr());
    json.Add("unit", manager.GetCurrEntityMeasUnit());
    json.Add("rate_hz", analysis.GetFFTSR());
    json.Add("fft_samples", analysis.GetFFTSamples());
    json.Add("resolution_hz", analysis.GetResolutionHz());
    json.Add("fft_count", analysis.GetFFTCount());
    json.Add("epochs", EpochsToJson(analysis, recording));
    std::vector<double> frequencies;
    for (std::uint64_t bin = 0; bin <= analysis.GetFFTSamples() / 2; ++bin) {
        frequencies.push_back(analysis.GetFreqFromIndex(bin));
    }
    json.AddNumbers("frequencies_hz", frequencies);
    TraceTexts texts(manager, analysis, extra);
    std::vector<JsonObject> sensors;
    std::vector<JsonObject> channels;
    ForEachTrace(analysis, [&](const Trace& trace) {
        (trace.sensor != nullptr ? sensors : channels).push_back(texts.Of(trace));
    });
    json.AddObjects("sensors", sensors);
    json.AddObjects("channels", channels);
    Json bands = Json::array();
    for (unsigned b = 0; b < SPECT::BandCount; ++b) {
        if (const SPECT::Band& band = manager.GetBand(b); band.IsDefined()) {
            bands.push_back(BandJson(band.name, band.lo, band.hi));
        }
    }
    json.Add("bands", bands);
    const SPECT::Globals& globals = SPECT::GetGlobals();
    json.Add("total_band", BandJson("Total", globals.TotalLo, globals.TotalHi));
    json.Add("repairs", recording.GetRecording()->Repairs());
    return json;
}

std::string ToCsv(const SpectraMgr& manager, const SpectMacroResult& analysis) {
    std::string csv = CsvHeading();
    ForEachTrace(analysis, [&](const Trace& trace) {
        ForEachMeasure(manager, [&](unsigned band, SPECT::Meas::Type measure) {
            csv += CsvLine({trace.spectrum->GetName(), trace.kind, manager.GetBand(band).name,
                            manager.GetBandMeasName(static_cast<unsigned>(measure)),
                            spectral::NumberText(trace.spectrum->GetMeasure(static_cast<int>(band), measure)),
                            manager.GetBandMeasUnit(measure)});
        });
    });
    return csv;
}

std::string Heading(const EEGFileInfoType& recording, const SpectMacroResult& analysis) {
    const signal::Recording& opened = *recording.GetRecording();
    const SpectraMacro& macro = analysis.GetMacro();
    std::string text = recording.GetFileNameText() + ": " + opened.Data().format + ", " +
                       DurationText(opened.Time().Duration()) + ", " +
                       Counted(analysis.GetSensorMap().size(), "EEG sensor") + " at " +
                       spectral::NumberText(analysis.GetFFTSR()) + " Hz\n";
    text += Counted(analysis.GetFFTCount(), "epoch") + " of " + spectral::NumberText(macro.GetFFTSeconds()) +
            " s (" + std::to_string(analysis.GetFFTSamples()) + "-point transform, " +
            spectral::NumberText(analysis.GetResolutionHz()) + " Hz a bin), " +
            std::to_string(macro.GetOverlapPerc()) + " % overlap, " + macro.GetDSPWindowStr() +
            "; montage: " + analysis.GetMontage().GetName() + "\n";
    for (const std::string& repair : opened.Repairs()) {
        text += "Note: " + repair + "\n";
    }
    return text;
}

std::string MeasuresTable(const SpectraMgr& manager, const SpectMacroResult& analysis) {
    using SPECT::Meas::Type;
    std::vector<TableBlock> blocks;
    for (const Type measure : TableMeasures(manager.GetMeasEntity())) {
        const std::string unit = manager.GetBandMeasUnit(measure);
        const std::string name = measure == Type::Mean
                                     ? manager.GetCurrMeasEntityStr()
                                     : manager.GetBandMeasName(static_cast<unsigned>(measure));
        const auto value = [measure](const Trace& trace, unsigned band) {
            return trace.spectrum->GetMeasure(static_cast<int>(band), measure);
        };
        std::string title = name;
        if (!unit.empty()) {
            title.append(" [").append(unit).append("]");
        }
        blocks.push_back({title, value, measure == Type::Abs ? TableBlock::kSignificant : 2});
    }
    return BandTable(manager, analysis, blocks);
}

} // namespace orvanta::cli
