// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/macro_editing.h"

#include "host/review/app/macro_labels.h"
#include "host/review/app/module_bridge.h"
#include "host/signal_base/recording.h"
#include "host/toolkit/services.h"
#include "spectra_contract/platform.h"

namespace orvanta::review {

namespace {

constexpr int kModeEdit = 2;
constexpr std::int32_t kChosen = 1;

/// The macros in a folder that can be read.
std::vector<SpectraMacro> MacrosIn(const std::string& folder) {
    std::vector<SpectraMacro> macros;
    for (const std::string& name : owl::CurrentServices().files->FilesIn(folder, ".smx")) {
        SpectraMacro macro;
        if (macro.Load(folder + name) != 2) {
            macros.push_back(macro);
        }
    }
    return macros;
}

} // namespace

MacroEditing::MacroEditing(const EditMacroRequest& request) {
    if (!request.recording.empty()) {
        recording_ = signal::OpenRecording(request.recording);
        recording_->GetTraceInfo()->GetSensorsListOfType(sensors_, Sensor::EegFamily, Sensor::Class::Eeg);
    }
}

std::string MacroEditing::Run(ModuleBridge& bridge, const GenericPlatform& platform) {
    return ChooseMacro(bridge, platform);
}

EventsManager& MacroEditing::Events() {
    return recording_ != nullptr ? *recording_->GetEventsManager() : ownEvents_;
}

std::string MacroEditing::ChooseMacro(ModuleBridge& bridge, const GenericPlatform& platform) {
    std::unique_ptr<SpectraMgr> context;
    if (recording_ != nullptr) {
        // A macro that is loaded is held against the recording's events.
        context = std::make_unique<SpectraMgr>(recording_.get(), platform.GetGUI());
    } else {
        AddLabelsOf(MacrosIn(platform.GetAppFolder("MACRO")), ownEvents_);
    }
    const std::int32_t answer = bridge.SelectMacro(nullptr, macro_, &Events(), sensors_, kModeEdit, platform);
    return answer == kChosen && !macro_.GetFileName().empty() ? "chosen " + macro_.GetFileName()
                                                              : std::string();
}

} // namespace orvanta::review
