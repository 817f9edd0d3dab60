// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spect_macro_result.h"

#include "host/spectral_data/results/errors.h"
#include "host/spectral_data/results/spect_macro_result_impl.h"
#include "host/spectral_data/results/spectrum_impl.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/spect_globals.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

using orvanta::spectral::Analysis;
using orvanta::spectral::EpochPlan;
using orvanta::spectral::EpochSpectrum;
using orvanta::spectral::FailureText;
using orvanta::spectral::GetWindowGeometry;
using orvanta::spectral::MeanSpectrum;
using orvanta::spectral::PlanEpochs;
using orvanta::spectral::WindowGeometry;

namespace {

std::uint64_t NextGeneration() {
    static std::uint64_t last = 0;
    return ++last;
}

unsigned NextNumber() {
    static unsigned last = 0;
    return ++last;
}

/// The settings with the contrast and colour, which do not enter the spectra, of others.
SpectraMacro WithLabelsOf(const SpectraMacro& labels, SpectraMacro settings) {
    settings.SetContrastValue(labels.GetContrastValue());
    settings.Color = labels.Color;
    return settings;
}

/// The electrodes that an analysis leaves out: those marked bad now.
std::vector<const SensorType*> BadElectrodes(const orvanta::signal::Recording& recording) {
    std::vector<const SensorType*> bad;
    for (const auto& sensor : recording.Sensors()) {
        if (sensor->IsEeg() && sensor->IsBad()) {
            bad.push_back(sensor.get());
        }
    }
    return bad;
}

/// Where the by-duration mode starts, in seconds.
double CursorSeconds(const EEGFileInfoType& file) {
    return file.GetTraceCursor()->GetStartRecTime()->Seconds();
}

EpochPlan PlanOf(const SpectraMacro& macro, const EEGFileInfoType& file, double cursor_s) {
    return PlanEpochs(macro, *file.GetEventsManager(), *file.GetRecording(), cursor_s);
}

/// True when an epoch of the plan lies inside the span.
bool HasEpoch(const EpochPlan& plan, const orvanta::spectral::TimeSpan& span,
              const orvanta::signal::Timeline& time) {
    const auto ranges = time.Ranges(span.begin_s, span.end_s, span.limit_s);
    return std::any_of(ranges.begin(), ranges.end(), [&](const orvanta::signal::SampleRange& range) {
        const auto first = std::lower_bound(plan.starts.begin(), plan.starts.end(), range.first);
        return first != plan.starts.end() && *first + plan.geometry.window <= range.last;
    });
}

XTimeList EventListOf(const orvanta::signal::Recording& recording, const EpochPlan& plan) {
    XTimeList list;
    for (std::size_t i = 0; i < plan.starts.size(); ++i) {
        list.push_back(orvanta::spectral::EpochInterval(recording, plan.geometry, plan.starts[i]),
                       static_cast<std::uint32_t>(i));
    }
    return list;
}

} // namespace

bool SpectMacroResult::SensorOrder::operator()(const SensorType* a, const SensorType* b) const {
    return a->GetSignalIndex() < b->GetSignalIndex();
}

SpectMacroResult::Impl::Impl(const SpectraMacro& settings, EEGFileInfoType* file)
    : macro(settings), recording(file), number(NextNumber()), generation(NextGeneration()) {}

const orvanta::signal::Recording* SpectMacroResult::Impl::Data() const {
    return recording == nullptr ? nullptr : recording->GetRecording().get();
}

EpochPlan SpectMacroResult::Impl::PlanNow() const {
    return recording == nullptr ? EpochPlan() : PlanOf(macro, *recording, CursorSeconds(*recording));
}

double SpectMacroResult::Impl::Rate() const {
    return Data() == nullptr ? 0 : Data()->Rate();
}

WindowGeometry SpectMacroResult::Impl::Geometry() const {
    return analysis ? analysis->Geometry() : GetWindowGeometry(macro, Rate());
}

EpochPlan SpectMacroResult::Impl::Plan() const {
    return analysis ? analysis->Input().plan : PlanNow();
}

SpectraMacro SpectMacroResult::Impl::Settings() const {
    return analysis ? WithLabelsOf(macro, analysis->Macro()) : macro;
}

bool SpectMacroResult::Impl::IsCurrent() const {
    if (!analysis || !(macro == Settings()) || computedBad != BadElectrodes(analysis->Recording())) {
        return false;
    }
    const std::uint64_t now = recording->GetEventsManager()->GetGeneration();
    if (now != eventsGeneration) {
        if (PlanOf(macro, *recording, computedCursor) != analysis->Input().plan) {
            return false;
        }
        eventsGeneration = now;
    }
    return true;
}

void SpectMacroResult::Impl::Adopt(std::shared_ptr<const Analysis> computed) {
    generation = NextGeneration();
    epochSpectra = {};
    sensors.clear();
    channels.clear();
    analysis = std::move(computed);
    if (!analysis) {
        return;
    }
    for (const SensorType* sensor : analysis->Sensors()) {
        sensors.emplace(sensor, SpectrumSens(MeanSpectrum(analysis, *analysis->Row(sensor)), sensor));
    }
    for (const auto& [channel, trace] : analysis->Channels()) {
        channels.push_back(trace ? std::make_unique<SpectrumChn>(MeanSpectrum(analysis, *trace), channel)
                                 : nullptr);
    }
}

SpectMacroResult::SpectMacroResult(const SpectraMacro& macro, EEGFileInfoType* recording, const GenericGUI*)
    : impl_(std::make_unique<Impl>(macro, recording)) {}

SpectMacroResult::~SpectMacroResult() = default;

void SpectMacroResult::ComputeFFT(EEGFileInfoType* recording, const GenericGUI* gui) {
    std::string failure;
    try {
        const auto progress = gui == nullptr ? nullptr : gui->CreateProgress("Computing Spectra...");
        ComputeOf(recording, progress.get());
    } catch (const std::exception& error) {
        failure = FailureText(error);
    }
    if (gui != nullptr && !failure.empty()) {
        gui->ShowError(failure);
    }
}

bool SpectMacroResult::Compute(GenericProgress* progress, double topFrequency) {
    return ComputeOf(nullptr, progress, topFrequency);
}

bool SpectMacroResult::ComputeOf(EEGFileInfoType* recording, GenericProgress* progress, double topFrequency) {
    EEGFileInfoType* file = recording != nullptr ? recording : impl_->recording;
    if (file == nullptr) {
        throw orvanta::spectral::NothingComputable("there is no recording", "open one first");
    }
    const double cursor = CursorSeconds(*file);
    const std::uint64_t events = file->GetEventsManager()->GetGeneration();
    auto bad = BadElectrodes(*file->GetRecording());
    auto computed = Analysis::Compute({file->GetRecording(), impl_->macro, file->GetTraceInfo()->GetMtg(),
                                       PlanOf(impl_->macro, *file, cursor), impl_->options},
                                      progress);
    if (!computed) {
        return false;
    }
    impl_->recording = file;
    impl_->Adopt(std::move(computed));
    impl_->computedBad = std::move(bad);
    impl_->computedCursor = cursor;
    impl_->eventsGeneration = events;
    // A view takes half of the rate rounded to a whole number for the limit.
    impl_->computedTop = std::max(topFrequency, std::max(impl_->Rate(), std::round(impl_->Rate())) / 2);
    return true;
}

void SpectMacroResult::ResetData() {
    impl_->Adopt(nullptr);
}

bool SpectMacroResult::IsComputed() const {
    return impl_->analysis != nullptr;
}

bool SpectMacroResult::IsRecomputingNeeded(const MontageType& montage, const XTimeList& events,
                                           double topFrequency) const {
    if (!impl_->IsCurrent() || topFrequency > impl_->computedTop ||
        !(montage == impl_->analysis->Montage())) {
        return true;
    }
    return !events.empty() &&
           events != EventListOf(impl_->analysis->Recording(), impl_->analysis->Input().plan);
}

std::uint64_t SpectMacroResult::GetFFTSamples() const {
    return impl_->Geometry().padded;
}

double SpectMacroResult::GetFFTSR() const {
    return impl_->Rate();
}

double SpectMacroResult::GetResolutionHz() const {
    return impl_->Rate() / static_cast<double>(GetFFTSamples());
}

std::uint64_t SpectMacroResult::GetFFTCount() const {
    return impl_->analysis ? impl_->analysis->EpochCount() : impl_->PlanNow().starts.size();
}

std::uint64_t SpectMacroResult::GetIndexFromFreq(double hz) const {
    const std::uint64_t nyquist = GetFFTSamples() / 2;
    const double bin = std::round(hz / GetResolutionHz());
    if (!(bin > 0)) { // not a number, too
        return 0;
    }
    return bin < static_cast<double>(nyquist) ? static_cast<std::uint64_t>(bin) : nyquist;
}

double SpectMacroResult::GetFreqFromIndex(std::uint64_t bin) const {
    return static_cast<double>(bin) * GetResolutionHz();
}

double SpectMacroResult::GetTrueFreqFromFreq(double hz) const {
    return GetFreqFromIndex(GetIndexFromFreq(hz));
}

SpectrumSingle* SpectMacroResult::GetSpectrum(const SensorType* sensor) const {
    if (sensor == nullptr) {
        return nullptr;
    }
    const auto found = impl_->sensors.find(sensor);
    return found == impl_->sensors.end() || found->first != sensor ? nullptr : &found->second;
}

SpectrumSingle* SpectMacroResult::GetSpectrum(const ChnType* channel) const {
    const auto index = impl_->analysis ? impl_->analysis->IndexOf(channel) : std::nullopt;
    return index ? impl_->channels[*index].get() : nullptr;
}

SpectrumSingle* SpectMacroResult::GetSpeCartoon(std::uint64_t epoch, const SensorType* sensor) const {
    const Analysis* analysis = impl_->analysis.get();
    const auto trace = analysis != nullptr ? analysis->Row(sensor) : std::nullopt;
    if (!trace || epoch >= analysis->EpochCount()) {
        return nullptr;
    }
    if (impl_->epochSpectra.epoch != epoch) {
        impl_->epochSpectra = {epoch, {}};
    }
    auto& known = impl_->epochSpectra.sensors;
    if (const auto found = known.find(sensor); found != known.end()) {
        return &found->second;
    }
    try {
        const auto power = analysis->Epochs().Power(epoch, trace->row);
        return &known.emplace(sensor, SpectrumSens(EpochSpectrum(power, analysis->Resolution()), sensor))
                    .first->second;
    } catch (const std::runtime_error&) { // the file went away or changed: there is no such spectrum any more
        return nullptr;
    }
}

void SpectMacroResult::GetSpeCartoon(std::vector<double>& values, std::uint64_t epoch,
                                     const ChnType* channel) const {
    values.clear();
    const Analysis* analysis = impl_->analysis.get();
    const auto trace = analysis != nullptr ? analysis->Row(channel) : std::nullopt;
    if (!trace || epoch >= analysis->EpochCount()) {
        return;
    }
    try {
        const auto power = analysis->Epochs().Power(epoch, trace->row);
        const auto spectrum = EpochSpectrum(power, analysis->Resolution());
        const std::span<const double> means = spectrum->Mean(SPECT::GetGlobals().GetMeasEntity());
        values.assign(means.begin(), means.end());
    } catch (const std::runtime_error&) { // as above
        values.clear();
    }
}

std::uint64_t SpectMacroResult::GetSpeCartoonChnLen() const {
    return impl_->analysis ? impl_->analysis->EpochCount() : 0;
}

unsigned SpectMacroResult::GetNumBip() const {
    return GetMontage().GetNumBip();
}

const XTime* SpectMacroResult::GetNextSelectionStart(const XTime* time) const {
    const orvanta::signal::Recording* data = impl_->Data();
    if (data == nullptr || !(data->Rate() > 0)) {
        return nullptr;
    }
    if (time != nullptr &&
        impl_->macro.GetTimeIntervalSelectMode() == SpectraMacro::TimeIntervalSelectMode::ByDuration) {
        // The processed stretch follows the cursor, so the next one begins where this one ends.
        const double next = time->Seconds() + impl_->macro.GetFixedDurationSec();
        if (!(next > time->Seconds() && next < data->Time().Duration())) {
            return nullptr;
        }
        impl_->nextSelection = XTime::FromSeconds(next);
        return &impl_->nextSelection;
    }
    // A cursor set to a selection's start stands on its first sample, up to half a sample beside it.
    const double after = time == nullptr ? -1 : time->Seconds() + 0.5 / data->Rate();
    const EpochPlan plan = impl_->PlanNow();
    for (const auto& span : plan.spans) {
        const double start = data->Time().TimeOf(data->Time().SampleAt(span.begin_s));
        if (start > after && HasEpoch(plan, span, data->Time())) {
            impl_->nextSelection = XTime::FromSeconds(start);
            return &impl_->nextSelection;
        }
    }
    return nullptr;
}

void SpectMacroResult::GetEventList(EEGFileInfoType*, XTimeList& list, const GenericGUI*) const {
    list.clear();
    if (impl_->IsCurrent()) {
        list = EventListOf(impl_->analysis->Recording(), impl_->analysis->Input().plan);
    } else if (const orvanta::signal::Recording* data = impl_->Data()) {
        list = EventListOf(*data, impl_->PlanNow());
    }
}

std::string SpectMacroResult::GetDSPWindowStr() const {
    return impl_->macro.GetDSPWindowStr();
}

void SpectMacroResult::SetDSPWindowStr(const std::string& name) {
    impl_->macro.SetDSPWindowStr(name);
}

void SpectMacroResult::SetFFTSeconds(double seconds) {
    impl_->macro.SetFFTSeconds(seconds);
}

SpectraMacro& SpectMacroResult::GetMacro() {
    return impl_->macro;
}

const SpectraMacro& SpectMacroResult::GetMacro() const {
    return impl_->macro;
}

const MontageType& SpectMacroResult::GetMontage() const {
    static const MontageType none;
    if (impl_->analysis) {
        return impl_->analysis->Montage();
    }
    return impl_->recording == nullptr ? none : impl_->recording->GetTraceInfo()->GetMtg();
}

const SpectMacroResult::SensorMap& SpectMacroResult::GetSensorMap() const {
    return impl_->sensors;
}

SensorList SpectMacroResult::GetSensors() const {
    SensorList sensors;
    if (impl_->analysis) {
        sensors.assign(impl_->analysis->Sensors().begin(), impl_->analysis->Sensors().end());
    } else if (impl_->recording != nullptr) {
        impl_->recording->GetTraceInfo()->GetSensorsList(sensors, Sensor::Class::Eeg);
    }
    return sensors;
}

std::uint64_t SpectMacroResult::GetGeneration() const {
    return impl_->generation;
}

void SpectMacroResult::SetComputeOptions(const orvanta::spectral::ComputeOptions& options) {
    impl_->options = options;
}

std::shared_ptr<const Analysis> SpectMacroResult::GetAnalysis() const {
    return impl_->analysis;
}
