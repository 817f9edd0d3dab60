// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spectra_macro.h"

#include "host/platform/atomic_file.h"
#include "host/signal_base/data_file.h"
#include "host/spectral_data/settings/event_context.h"
#include "host/spectral_data/settings/macro_file.h"
#include "host/spectral_data/settings/macro_limits.h"
#include "spectra_contract/events.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

using orvanta::signal::DataFile;
namespace spectral = orvanta::spectral;

struct SpectraMacro::Impl {
    struct Settings {
        double fftSeconds = 2;
        unsigned overlapPerc = 50;
        std::string window = "Hanning";
        TimeIntervalSelectMode mode = TimeIntervalSelectMode::AllRecording;
        unsigned fixedDurationSec = 60;
        int preTriggerMS = 0;
        int trgDurationMS = 1000;
        std::set<std::string> acceptState;
        std::set<std::string> acceptSpot;
        std::set<std::string> reject;
        EpochsSelectionMode epochsMode = EpochsSelectionMode::All;
        std::uint64_t epochs = 10;
        int contrast = 0;

        bool operator==(const Settings&) const = default;
    };

    Settings settings;
    std::string fileName;
    std::string lastError;

    /// Runs a file operation and keeps the reason of its failure.
    template <typename Operation>
    bool Try(const Operation& operation) {
        lastError.clear();
        try {
            operation();
            return true;
        } catch (const std::exception& error) {
            lastError = error.what();
            return false;
        }
    }
};

namespace {

enum LoadResult { kLoaded = 0, kNoMatchedEvents = 1, kNotReadable = 2 };

/// Whether any of the labels that the macro's mode selects by exists among the events.
bool MatchesEvents(const SpectraMacro& macro, const EventsManager& events) {
    using Mode = SpectraMacro::TimeIntervalSelectMode;
    const Mode mode = macro.GetTimeIntervalSelectMode();
    if (mode != Mode::ByStateEvents && mode != Mode::BySpotEvents) {
        return true;
    }
    const bool states = mode == Mode::ByStateEvents;
    const EventClass wanted = states ? EventClass::State : EventClass::Spot;
    const std::set<std::string> labels = states ? macro.GetAcceptStateList() : macro.GetAcceptSpotList();
    return std::any_of(events.GetEvents().begin(), events.GetEvents().end(), [&](const EventRecord& event) {
        return event.Class == wanted && labels.contains(event.Label);
    });
}

} // namespace

SpectraMacro::SpectraMacro() : impl_(std::make_unique<Impl>()) {}
SpectraMacro::~SpectraMacro() = default;
SpectraMacro::SpectraMacro(const SpectraMacro& other)
    : SpotStepCount(other.SpotStepCount), SpotStepInc(other.SpotStepInc), Color(other.Color),
      impl_(std::make_unique<Impl>(*other.impl_)) {}

SpectraMacro& SpectraMacro::operator=(const SpectraMacro& other) {
    *impl_ = *other.impl_;
    SpotStepCount = other.SpotStepCount;
    SpotStepInc = other.SpotStepInc;
    Color = other.Color;
    return *this;
}

bool SpectraMacro::operator==(const SpectraMacro& other) const {
    return impl_->settings == other.impl_->settings && SpotStepCount == other.SpotStepCount &&
           SpotStepInc == other.SpotStepInc && Color == other.Color;
}

int SpectraMacro::Load(const std::string& path) {
    const bool read = impl_->Try([&] {
        SpectraMacro loaded =
            spectral::ParseMacroFile(path, DataFile(path, "a macro file").ReadAll(spectral::kMaxMacroBytes));
        loaded.impl_->fileName = path;
        *this = loaded;
    });
    if (!read) {
        // Whoever goes on with these settings means the file that was asked for, not the one loaded before.
        impl_->fileName.clear();
        return kNotReadable;
    }
    const EventsManager* events = spectral::GetMacroEventContext();
    if (events == nullptr || MatchesEvents(*this, *events)) {
        return kLoaded;
    }
    SetTimeIntervalSelectMode(TimeIntervalSelectMode::AllRecording);
    return kNoMatchedEvents;
}

int SpectraMacro::Save() {
    if (impl_->fileName.empty()) {
        impl_->lastError = "the settings have no file yet (save them under a name)";
        return 1;
    }
    return SaveAs(impl_->fileName);
}

int SpectraMacro::SaveAs(const std::string& path) {
    const std::string target = path;
    const bool written = impl_->Try([&] {
        const std::string content = spectral::FormatMacroFile(*this);
        spectral::ParseMacroFile(target, content); // what could not be read again must not replace a file
        orvanta::platform::WriteFileAtomically(target, content);
    });
    if (written) {
        impl_->fileName = target;
    }
    return written ? 0 : 1;
}

const std::string& SpectraMacro::GetLastError() const {
    return impl_->lastError;
}

const std::string& SpectraMacro::GetFileName() const {
    return impl_->fileName;
}

double SpectraMacro::GetFFTSeconds() const {
    return impl_->settings.fftSeconds;
}

void SpectraMacro::SetFFTSeconds(double seconds) {
    if (std::isfinite(seconds) && seconds > 0) {
        impl_->settings.fftSeconds = std::min(seconds, spectral::kMaxFFTSeconds);
    }
}

unsigned SpectraMacro::GetOverlapPerc() const {
    return impl_->settings.overlapPerc;
}

void SpectraMacro::SetOverlapPerc(unsigned percent) {
    impl_->settings.overlapPerc = std::min(percent, spectral::kMaxOverlapPerc);
}

std::string SpectraMacro::GetDSPWindowStr() const {
    return impl_->settings.window;
}

void SpectraMacro::SetDSPWindowStr(const std::string& name) {
    impl_->settings.window = name;
}

SpectraMacro::TimeIntervalSelectMode SpectraMacro::GetTimeIntervalSelectMode() const {
    return impl_->settings.mode;
}

void SpectraMacro::SetTimeIntervalSelectMode(TimeIntervalSelectMode mode) {
    if (mode >= TimeIntervalSelectMode::AllRecording && mode <= TimeIntervalSelectMode::BySpotEvents) {
        impl_->settings.mode = mode;
    }
}

unsigned SpectraMacro::GetFixedDurationSec() const {
    return impl_->settings.fixedDurationSec;
}

void SpectraMacro::SetFixedDurationSec(unsigned seconds) {
    impl_->settings.fixedDurationSec = seconds;
}

int SpectraMacro::GetPreTriggerMS() const {
    return impl_->settings.preTriggerMS;
}

void SpectraMacro::SetPreTriggerMS(int ms) {
    impl_->settings.preTriggerMS = ms;
}

int SpectraMacro::GetTrgDurationMS() const {
    return impl_->settings.trgDurationMS;
}

void SpectraMacro::SetTrgDurationMS(int ms) {
    impl_->settings.trgDurationMS = ms;
}

std::set<std::string> SpectraMacro::GetAcceptStateList() const {
    return impl_->settings.acceptState;
}

void SpectraMacro::SetAcceptStateList(const std::set<std::string>& labels) {
    impl_->settings.acceptState = labels;
}

std::set<std::string> SpectraMacro::GetAcceptSpotList() const {
    return impl_->settings.acceptSpot;
}

void SpectraMacro::SetAcceptSpotList(const std::set<std::string>& labels) {
    impl_->settings.acceptSpot = labels;
}

std::set<std::string> SpectraMacro::GetRejectEventsList() const {
    return impl_->settings.reject;
}

void SpectraMacro::SetRejectEventsList(const std::set<std::string>& labels) {
    impl_->settings.reject = labels;
}

SpectraMacro::EpochsSelectionMode SpectraMacro::GetEpochsSelMode() const {
    return impl_->settings.epochsMode;
}

void SpectraMacro::SetEpochsSelMode(EpochsSelectionMode mode) {
    if (mode >= EpochsSelectionMode::All && mode <= EpochsSelectionMode::RandomN) {
        impl_->settings.epochsMode = mode;
    }
}

std::uint64_t SpectraMacro::GetNumEpochsToUse() const {
    return impl_->settings.epochs;
}

void SpectraMacro::SetNumEpochsToUse(std::uint64_t count) {
    impl_->settings.epochs = std::clamp<std::uint64_t>(count, 1, spectral::kMaxEpochs);
}

int SpectraMacro::GetContrastValue() const {
    return impl_->settings.contrast;
}

void SpectraMacro::SetContrastValue(int value) {
    impl_->settings.contrast = value;
}
