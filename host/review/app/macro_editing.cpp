// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/macro_editing.h"

#include "host/review/app/macro_labels.h"
#include "host/review/app/module_bridge.h"
#include "host/review/cli/event_warnings.h"
#include "host/review/cli/exit_status.h"
#include "host/signal_base/recording.h"
#include "host/toolkit/services.h"
#include "spectra_contract/file_path.h"
#include "spectra_contract/platform.h"

#include <cerrno>
#include <system_error>

namespace orvanta::review {

namespace {

constexpr int kModeEdit = 2;
constexpr std::int32_t kChosen = 1;
constexpr int kUnreadable = 2; // of SpectraMacro::Load

/// With the separator at its end; empty for a bare name.
std::string FolderOf(const std::string& path) {
    return path.substr(0, path.rfind(FilePath::Separator) + 1);
}

/// \throws cli::UsageError unless the file can be replaced
void RequireWritable(const std::string& path) {
    const owl::FileAccess& files = *owl::CurrentServices().files;
    const std::string folder = FolderOf(path);
    for (const std::string& place : {path, folder.empty() ? std::string(".") : folder}) {
        if (const int error = files.Access(place, owl::FileAccess::kWritable); error != 0) {
            throw cli::UsageError(place + ": cannot be written: " + std::generic_category().message(error) +
                                  " (change its permissions, or copy the macro to another folder)");
        }
    }
}

/// \throws cli::UsageError unless it is a macro file that can be read and replaced
SpectraMacro LoadForEditing(const std::string& path) {
    if (owl::CurrentServices().files->Access(path, owl::FileAccess::kExists) == ENOENT) {
        throw cli::UsageError(path + ": no such file (orvanta macro new makes one)");
    }
    SpectraMacro macro;
    if (macro.Load(path) == kUnreadable) {
        throw cli::UsageError(macro.GetLastError());
    }
    RequireWritable(path);
    return macro;
}

} // namespace

MacroEditing::MacroEditing(const EditMacroRequest& request) : file_(request.file) {
    if (!file_.empty()) {
        macro_ = LoadForEditing(file_);
    }
    if (!request.recording.empty()) {
        recording_ = signal::OpenRecording(request.recording);
        recording_->GetTraceInfo()->GetSensorsListOfType(sensors_, Sensor::EegFamily, Sensor::Class::Eeg);
    }
}

std::string MacroEditing::Run(ModuleBridge& bridge, const GenericPlatform& platform) {
    return file_.empty() ? ChooseMacro(bridge, platform) : EditFile(bridge);
}

EventsManager& MacroEditing::Events() {
    return recording_ != nullptr ? *recording_->GetEventsManager() : ownEvents_;
}

std::string MacroEditing::EditFile(ModuleBridge& bridge) {
    if (recording_ != nullptr) {
        cli::WarnOfLabels(macro_, Events());
    } else {
        AddLabelsOf({macro_}, ownEvents_);
    }
    const SpectraMacro before = macro_;
    bridge.EditMacro(nullptr, FolderOf(file_), macro_, &Events(), sensors_, kModeEdit);
    if (!macro_.GetLastError().empty()) {
        throw cli::UsageError(macro_.GetLastError());
    }
    // The form saves when the user says so, under this name or another; what counts is what is in the file.
    const std::string& saved = macro_.GetFileName();
    SpectraMacro stored;
    const bool same = saved == file_ && stored.Load(saved) != kUnreadable && stored == before;
    return (same ? "unchanged " : "written ") + saved;
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
