// SPDX-License-Identifier: GPL-3.0-or-later
// A recording of ten seconds in a folder of its own, with events to change.
#pragma once

#include "host/signal_base/recording.h"
#include "tests/support/edf_file.h"
#include "tests/support/temp_folder.h"

#include <memory>
#include <string>
#include <vector>

namespace orvanta::test {

inline EventRecord SpotEvent(const std::string& label, double at) {
    return {label, EventClass::Spot, {XTime::FromSeconds(at), XTime::FromSeconds(at)}};
}

inline EventRecord StateEvent(const std::string& label, double begin, double end) {
    return {label, EventClass::State, {XTime::FromSeconds(begin), XTime::FromSeconds(end)}};
}

/// "tone" at 2 s is in the recording, sub_eeg.edf, itself; \p rows are those of sub_events.tsv below its head
/// (onset, duration, trial_type); none makes no table.
class EditedRecording {
public:
    static constexpr const char* kTable = "sub_events.tsv";
    static constexpr const char* kHead = "onset\tduration\ttrial_type\n";

    explicit EditedRecording(const std::string& rows = {}) {
        if (!rows.empty()) {
            folder.Write(kTable, kHead + rows);
        }
        EdfFile edf = PlusEdf(10);
        edf.signals.back().texts.front() += AnnotationBytes("2", "", "tone");
        recording = signal::OpenRecording(folder.Write("sub_eeg.edf", edf.Bytes()));
    }

    std::string Rows() const {
        const std::string table = folder.Read(kTable);
        return table.starts_with(kHead) ? table.substr(std::string(kHead).size()) : "no head: " + table;
    }

    TempFolder folder;
    std::unique_ptr<EEGFileInfoType> recording;
};

} // namespace orvanta::test
