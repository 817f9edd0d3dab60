// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spectra_mgr.h"

#include "host/spectral_data/results/bci_regression.h"
#include "host/spectral_data/results/comparison_of.h"
#include "host/spectral_data/results/names.h"
#include "host/spectral_data/results/progress_share.h"
#include "host/spectral_data/settings/event_context.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spect_globals.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <map>
#include <stdexcept>

using orvanta::spectral::TraceComparison;
using orvanta::spectral::TraceRow;

namespace {

constexpr double kDefaultThreshold = 0.05;

} // namespace

struct SpectraMgr::Impl {
    Impl(EEGFileInfoType* file, const GenericGUI* messages)
        : recording(file), gui(messages), events(file == nullptr ? nullptr : file->GetEventsManager()) {}

    bool Owns(const SpectMacroResult* analysis) const {
        return std::find(analyses.begin(), analyses.end(), analysis) != analyses.end();
    }
    template <typename Trace>
    const TraceComparison* Compare(const Trace* trace) const;

    EEGFileInfoType* recording;
    const GenericGUI* gui;
    orvanta::spectral::MacroEventContext events;
    std::vector<SpectMacroResult*> analyses;
    SpectMacroResult* main = nullptr;
    SpectMacroResult* secondary = nullptr;
    int statMode = 0;
    double threshold = kDefaultThreshold;
    bool showTTest = false;
    bool showRatio = false;

    /// Comparisons of the pair of analyses that was asked for last.
    struct Comparisons {
        std::uint64_t mainGeneration = 0, secondaryGeneration = 0;
        SPECT::Entity::Type entity = SPECT::Entity::Type::Power;
        bool comparable = false;
        std::map<std::pair<TraceRow, TraceRow>, TraceComparison> traces;

        bool IsOf(const Comparisons& other) const {
            return mainGeneration == other.mainGeneration &&
                   secondaryGeneration == other.secondaryGeneration && entity == other.entity;
        }
    };
    mutable Comparisons comparisons;
};

template <typename Trace>
const TraceComparison* SpectraMgr::Impl::Compare(const Trace* trace) const {
    const auto ofMain = main == nullptr ? nullptr : main->GetAnalysis();
    const auto ofSecondary = secondary == nullptr ? nullptr : secondary->GetAnalysis();
    if (!ofMain || !ofSecondary) {
        return nullptr;
    }
    Comparisons wanted;
    wanted.mainGeneration = main->GetGeneration();
    wanted.secondaryGeneration = secondary->GetGeneration();
    wanted.entity = SPECT::GetGlobals().GetMeasEntity();
    if (!comparisons.IsOf(wanted)) {
        wanted.comparable = AreComparable(*ofMain, *ofSecondary);
        comparisons = std::move(wanted);
    }
    const auto mainRow = ofMain->Row(trace);
    const auto secondaryRow = ofSecondary->Row(trace);
    const bool needsPair = comparisons.entity == SPECT::Entity::Type::Coherence ||
                           comparisons.entity == SPECT::Entity::Type::Phase;
    if (!comparisons.comparable || !mainRow || !secondaryRow || (needsPair && !mainRow->pair)) {
        return nullptr;
    }
    const auto key = std::pair(*mainRow, *secondaryRow);
    auto known = comparisons.traces.find(key);
    if (known == comparisons.traces.end()) {
        known =
            comparisons.traces
                .emplace(key, CompareRows(*ofMain, *mainRow, *ofSecondary, *secondaryRow, comparisons.entity))
                .first;
    }
    return &known->second;
}

SpectraMgr::SpectraMgr(EEGFileInfoType* recording, const GenericGUI* gui)
    : impl_(std::make_unique<Impl>(recording, gui)) {}

SpectraMgr::~SpectraMgr() {
    for (const SpectMacroResult* analysis : impl_->analyses) {
        delete analysis;
    }
}

const GenericGUI* SpectraMgr::GetGUI() const {
    return impl_->gui;
}

SpectraMgr::iterator SpectraMgr::begin() {
    return impl_->analyses.begin();
}

SpectraMgr::iterator SpectraMgr::end() {
    return impl_->analyses.end();
}

SpectraMgr::const_iterator SpectraMgr::begin() const {
    return impl_->analyses.begin();
}

SpectraMgr::const_iterator SpectraMgr::end() const {
    return impl_->analyses.end();
}

std::size_t SpectraMgr::Size() const {
    return impl_->analyses.size();
}

void SpectraMgr::push_back(SpectMacroResult* analysis) {
    if (analysis == nullptr || impl_->Owns(analysis)) {
        return;
    }
    impl_->analyses.push_back(analysis);
    if (impl_->main == nullptr) {
        impl_->main = analysis;
    }
}

void SpectraMgr::Remove(SpectMacroResult* analysis) {
    if (!impl_->Owns(analysis)) {
        return;
    }
    std::erase(impl_->analyses, analysis);
    if (impl_->secondary == analysis) {
        impl_->secondary = nullptr;
    }
    if (impl_->main == analysis) {
        SetMain(impl_->analyses.empty() ? nullptr : impl_->analyses.front());
    }
}

SpectMacroResult* SpectraMgr::GetMain() const {
    return impl_->main;
}

void SpectraMgr::SetMain(SpectMacroResult* analysis) {
    if (analysis != nullptr && !impl_->Owns(analysis)) {
        return;
    }
    impl_->main = analysis;
    if (impl_->secondary == analysis) {
        impl_->secondary = nullptr;
    }
}

SpectMacroResult* SpectraMgr::GetSecondary() const {
    return impl_->secondary;
}

void SpectraMgr::SetSecondary(SpectMacroResult* analysis) {
    if (analysis == nullptr || impl_->Owns(analysis)) {
        impl_->secondary = analysis == impl_->main ? nullptr : analysis;
    }
}

int SpectraMgr::GetStatMode() const {
    return impl_->statMode;
}

void SpectraMgr::SetStatMode(int mode) {
    impl_->statMode = mode;
}

namespace {

const double* ValuesOf(const TraceComparison* comparison,
                       const std::vector<double> TraceComparison::*values) {
    return comparison == nullptr ? nullptr : (comparison->*values).data();
}

bool HasTest(SPECT::Entity::Type entity) {
    return entity != SPECT::Entity::Type::Phase;
}

} // namespace

const double* SpectraMgr::GetP(const SensorType* sensor) const {
    const bool wanted = impl_->showTTest && HasTest(GetMeasEntity());
    return wanted ? ValuesOf(impl_->Compare(sensor), &TraceComparison::p) : nullptr;
}

const double* SpectraMgr::GetP(const ChnType* channel) const {
    const bool wanted = impl_->showTTest && HasTest(GetMeasEntity());
    return wanted ? ValuesOf(impl_->Compare(channel), &TraceComparison::p) : nullptr;
}

const double* SpectraMgr::GetRatio(const SensorType* sensor) const {
    return impl_->showRatio ? ValuesOf(impl_->Compare(sensor), &TraceComparison::ratio) : nullptr;
}

const double* SpectraMgr::GetRatio(const ChnType* channel) const {
    return impl_->showRatio ? ValuesOf(impl_->Compare(channel), &TraceComparison::ratio) : nullptr;
}

double SpectraMgr::GetPThreshold() const {
    return impl_->threshold;
}

void SpectraMgr::SetPThreshold(double threshold) {
    impl_->threshold = threshold;
}

bool SpectraMgr::GetShowTTest() const {
    return impl_->showTTest;
}

void SpectraMgr::SetShowTTest(bool show) {
    impl_->showTTest = show;
}

bool SpectraMgr::GetShowRatio() const {
    return impl_->showRatio;
}

void SpectraMgr::SetShowRatio(bool show) {
    impl_->showRatio = show;
}

SPECT::Band& SpectraMgr::GetBand(unsigned index) const {
    if (index >= SPECT::BandCount) {
        throw std::out_of_range("there is no band " + std::to_string(index));
    }
    return SPECT::GetGlobals().Bands[index];
}

std::string SpectraMgr::GetBandMeasName(unsigned measure) const {
    return orvanta::spectral::MeasureName(static_cast<SPECT::Meas::Type>(measure));
}

std::string SpectraMgr::GetBandMeasUnit(unsigned measure) const {
    return GetBandMeasUnit(static_cast<SPECT::Meas::Type>(measure));
}

std::string SpectraMgr::GetBandMeasUnit(SPECT::Meas::Type measure) const {
    return orvanta::spectral::MeasureUnit(measure, GetMeasEntity());
}

SPECT::Entity::Type SpectraMgr::GetMeasEntity() const {
    return SPECT::GetGlobals().GetMeasEntity();
}

void SpectraMgr::SetMeasEntity(SPECT::Entity::Type entity) {
    if (static_cast<unsigned>(entity) < SPECT::Entity::Count) {
        SPECT::GetGlobals().SetMeasEntity(entity);
    }
}

unsigned SpectraMgr::GetMeasEntityCount() const {
    return SPECT::Entity::Count;
}

std::string SpectraMgr::GetMeasEntityStr(SPECT::Entity::Type entity) const {
    return orvanta::spectral::EntityName(entity);
}

std::string SpectraMgr::GetCurrMeasEntityStr() const {
    return orvanta::spectral::EntityName(GetMeasEntity());
}

std::string SpectraMgr::GetCurrEntityMeasUnit() const {
    return orvanta::spectral::EntityUnit(GetMeasEntity());
}

bool SpectraMgr::IsRecomputingNeeded(const MontageType& montage, const XTimeList& events,
                                     double topFrequency) const {
    // The list is that of the main analysis; the secondary one has epochs of its own.
    return (impl_->main != nullptr && impl_->main->IsRecomputingNeeded(montage, events, topFrequency)) ||
           (impl_->secondary != nullptr && impl_->secondary->IsRecomputingNeeded(montage, {}, topFrequency));
}

bool SpectraMgr::ReComputeFFT(EEGFileInfoType* recording, double topFrequency, const XTimeList& events,
                              GenericProgress* progress) {
    EEGFileInfoType* file = recording != nullptr ? recording : impl_->recording;
    if (file == nullptr) {
        return impl_->analyses.empty();
    }
    std::vector<SpectMacroResult*> stale;
    for (SpectMacroResult* analysis : impl_->analyses) {
        const bool isMain = analysis == impl_->main;
        const auto computed = analysis->GetAnalysis();
        const bool ofAnother = computed && &computed->Recording() != file->GetRecording().get();
        if (ofAnother || analysis->IsRecomputingNeeded(file->GetTraceInfo()->GetMtg(),
                                                       isMain ? events : XTimeList(), topFrequency)) {
            stale.insert(isMain ? stale.begin() : stale.end(), analysis); // what is shown comes first
        }
    }
    // One analysis that cannot be computed does not keep the others from being brought up to date.
    std::exception_ptr failure;
    for (std::size_t i = 0; i < stale.size(); ++i) {
        orvanta::spectral::ProgressShare share(progress, i, stale.size());
        try {
            if (!stale[i]->ComputeOf(file, progress == nullptr ? nullptr : &share, topFrequency)) {
                return false;
            }
        } catch (const std::exception&) {
            failure = failure ? failure : std::current_exception();
        }
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
    return true;
}

int SpectraMgr::ComputeBCIRegression(const std::list<SpectMacroResult*>& analyses, std::list<BCIReg>& results,
                                     const std::set<const SensorType*>& sensors, int low, int high,
                                     GenericProgress* progress) const {
    return static_cast<int>(orvanta::spectral::RegressContrast(orvanta::spectral::GroupsOf(analyses), sensors,
                                                               low, high, results, progress));
}
