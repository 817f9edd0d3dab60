// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/kept_marks.h"

namespace orvanta::review {

void KeptMarks::Save() {
    if (IsChanged()) {
        signal::SaveChannelMarks(recording_, saved_);
        saved_ = signal::MarksOf(recording_);
    }
}

std::vector<signal::ChannelMark> KeptMarks::Unsaved() const {
    std::vector<signal::ChannelMark> unsaved;
    for (const auto& [name, bad] : signal::MarksOf(recording_)) {
        const auto known = saved_.find(name);
        if (known == saved_.end() || known->second != bad) {
            unsaved.push_back({name, bad});
        }
    }
    return unsaved;
}

} // namespace orvanta::review
