// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/document.h"

#include "host/review/app/events/event_editor.h"
#include "host/review/app/log_step.h"
#include "host/review/app/main_window/kept_marks.h"
#include "host/signal_base/recording.h"
#include "spectra_contract/spectra_mgr.h"

#include <filesystem>

namespace orvanta::review {

namespace {

std::string FullPath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(path, error);
    return error ? path : full.lexically_normal().string();
}

std::unique_ptr<EEGFileInfoType> Opened(const std::string& path) {
    LogStep("opening " + path);
    return signal::OpenRecording(path);
}

} // namespace

Document::Document(const std::string& path, const GenericGUI& gui)
    : path_(FullPath(path)), recording_(Opened(path_)), events_(std::make_unique<EventEditor>(*recording_)),
      usualEvents_(events_->GetFile()), analyses_(std::make_unique<SpectraMgr>(recording_.get(), &gui)),
      marks_(std::make_unique<KeptMarks>(*recording_)) {}

Document::~Document() = default;

std::string Document::EventsElsewhere() const {
    return events_->GetFile() != usualEvents_ ? events_->GetFile() : std::string();
}

const std::vector<std::string>& Document::Repairs() const {
    return recording_->GetRecording()->Repairs();
}

} // namespace orvanta::review
