// SPDX-License-Identifier: GPL-3.0-or-later
// An open recording with its events and analyses.
#pragma once

#include "host/review/app/spectrum_look.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

class EEGFileInfoType;
class GenericGUI;
class SpectraMgr;

namespace orvanta::review {

class EventEditor;
class KeptMarks;

/// Knows nothing of windows. GUI thread.
class Document {
public:
    /// \param gui must outlive this
    /// \throws signal::RecordingError when the file is refused
    Document(const std::string& path, const GenericGUI& gui);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// Full path.
    const std::string& Path() const { return path_; }
    EEGFileInfoType& Recording() const { return *recording_; }
    EventEditor& Events() const { return *events_; }
    /// The user's table of events when it is not the one that belongs to the recording, else empty.
    std::string EventsElsewhere() const;
    SpectraMgr& Analyses() const { return *analyses_; }
    /// Of bad channels.
    KeptMarks& Marks() const { return *marks_; }
    /// What was repaired or is worth knowing, a sentence each.
    const std::vector<std::string>& Repairs() const;

    /// Whether the user looks at its maps on heads, not at flat ones.
    bool HasMapsOnHeads() const { return mapsOnHeads_; }
    void SetMapsOnHeads(bool onHeads) { mapsOnHeads_ = onHeads; }
    /// What the user chose in the spectrum view; nothing without one.
    const std::optional<SpectrumLook>& Look() const { return look_; }
    void SetLook(const std::optional<SpectrumLook>& look) { look_ = look; }

private:
    std::string path_;
    std::unique_ptr<EEGFileInfoType> recording_;
    std::unique_ptr<EventEditor> events_;
    std::string usualEvents_; ///< the recording's table
    std::unique_ptr<SpectraMgr> analyses_;
    std::unique_ptr<KeptMarks> marks_;
    bool mapsOnHeads_ = false;
    std::optional<SpectrumLook> look_;
};

} // namespace orvanta::review
