// SPDX-License-Identifier: GPL-3.0-or-later
// From an analysis to a spectra file.
#include "host/signal_base/time/time_text.h"
#include "host/spectral_data/files/spectra_file.h"
#include "host/spectral_data/results/errors.h"
#include "host/spectral_data/results/names.h"
#include "host/spectral_data/results/spect_macro_result_impl.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/spect_globals.h"

#include <algorithm>
#include <exception>
#include <string>

using orvanta::spectral::Analysis;
using orvanta::spectral::SpectraFileContent;
using orvanta::spectral::SpectraFileTrace;

namespace {

/// ISO 8601, to the millisecond.
std::string IsoText(const orvanta::signal::StartTime& start) {
    return orvanta::signal::DateText(start, 0) + 'T' + orvanta::signal::ClockText(start, 0);
}

SpectraFileTrace TraceOf(const char* kind, const SpectrumSingle& spectrum) {
    SpectraFileTrace trace{kind, spectrum.GetName(), {}, {}, {}};
    spectrum.GetSpect(trace.mean);
    spectrum.GetSpectSD(trace.sd);
    for (unsigned band = 0; band < SPECT::BandCount; ++band) {
        std::vector<double>& measures = trace.measures.emplace_back();
        for (unsigned measure = 0; measure < SPECT::Meas::Count; ++measure) {
            measures.push_back(
                spectrum.GetMeasure(static_cast<int>(band), static_cast<SPECT::Meas::Type>(measure)));
        }
    }
    return trace;
}

void DescribeRecording(const EEGFileInfoType& recording, SpectraFileContent& content) {
    const orvanta::signal::Recording& data = *recording.GetRecording();
    content.recording_file = recording.GetFileNameText();
    content.recording_label = recording.GetLabel();
    content.recording_format = data.Data().format;
    content.recording_start = data.Data().start ? IsoText(*data.Data().start) : "";
    content.recording_seconds = data.Time().Duration();
    content.repairs = data.Repairs();
}

void DescribeAnalysis(const Analysis& analysis, SpectraFileContent& content) {
    content.montage = analysis.Montage().GetName();
    content.rate_hz = analysis.Recording().Rate();
    content.window_samples = analysis.Geometry().window;
    content.fft_samples = analysis.Geometry().padded;
    content.resolution_hz = analysis.Resolution();
    for (std::uint64_t epoch = 0; epoch < analysis.EpochCount(); ++epoch) {
        const XTimeInterval time = analysis.EpochTime(epoch);
        content.epochs.push_back({time.GetBeginPtr()->Seconds(), time.GetEndPtr()->Seconds()});
    }
    for (std::uint32_t bin = 0; bin < analysis.Bins(); ++bin) {
        content.frequencies_hz.push_back(bin * analysis.Resolution());
    }
}

void DescribeMeasures(SpectraFileContent& content) {
    const SPECT::Globals& globals = SPECT::GetGlobals();
    const SPECT::Entity::Type entity = globals.GetMeasEntity();
    content.entity = orvanta::spectral::EntityName(entity);
    content.unit = orvanta::spectral::EntityUnit(entity);
    std::copy(std::begin(globals.Bands), std::end(globals.Bands), std::begin(content.bands));
    content.total_lo = globals.TotalLo;
    content.total_hi = globals.TotalHi;
    for (unsigned i = 0; i < SPECT::Meas::Count; ++i) {
        const auto measure = static_cast<SPECT::Meas::Type>(i);
        content.measure_names.push_back(orvanta::spectral::MeasureName(measure));
        content.measure_units.push_back(orvanta::spectral::MeasureUnit(measure, entity));
    }
}

} // namespace

bool SpectMacroResult::SaveSpectra(GenericPlatform* platform, const EEGFileInfoType*, const char* fileName,
                                   const SpectralComments* comments) const {
    const GenericGUI* gui = platform == nullptr ? nullptr : platform->GetGUI();
    const auto refuse = [&](const std::string& reason) {
        if (gui != nullptr) {
            gui->ShowError(reason);
        }
        return false;
    };
    if (!impl_->analysis) {
        return refuse("the spectra of " + GetName() + " are not computed (compute them, then save)");
    }
    if (fileName == nullptr || *fileName == '\0') {
        return refuse("the spectra file has no name (choose one)");
    }
    try {
        SpectraFileContent content;
        DescribeRecording(*impl_->recording, content);
        content.macro = impl_->Settings();
        DescribeAnalysis(*impl_->analysis, content);
        DescribeMeasures(content);
        content.comments = comments;
        for (const auto& [sensor, spectrum] : impl_->sensors) {
            content.traces.push_back(TraceOf("sensor", spectrum));
        }
        for (const auto& spectrum : impl_->channels) {
            if (spectrum) {
                content.traces.push_back(TraceOf("channel", *spectrum));
            }
        }
        orvanta::spectral::WriteSpectraFile(fileName, content);
    } catch (const std::exception& error) {
        return refuse(orvanta::spectral::FailureText(error));
    }
    return true;
}
