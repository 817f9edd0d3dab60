// SPDX-License-Identifier: GPL-3.0-or-later
// The marks of bad channels, from session to session.
#pragma once

#include "host/signal_base/channels_tsv/channel_marks.h"

namespace orvanta::review {

/// Knows which marks are in the table beside the recording. GUI thread.
class KeptMarks {
public:
    /// \param recording as it was opened, with the marks of the table; must outlive this
    explicit KeptMarks(const EEGFileInfoType& recording)
        : recording_(recording), saved_(signal::MarksOf(recording)) {}

    bool IsChanged() const { return signal::MarksOf(recording_) != saved_; }
    /// Writes what has changed. \throws std::runtime_error "PATH: reason (remedy)"; the marks then stay as
    /// they are
    void Save();
    /// Those that are not in the table.
    std::vector<signal::ChannelMark> Unsaved() const;

private:
    const EEGFileInfoType& recording_;
    signal::ChannelMarks saved_;
};

} // namespace orvanta::review
