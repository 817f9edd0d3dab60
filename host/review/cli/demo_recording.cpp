// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/demo_recording.h"

#include "host/signal_base/edf/edf_writer.h"

namespace orvanta::cli {

namespace {

signal::EdfWriterHeader HeaderOf(const DemoSignal& demo) {
    signal::EdfWriterHeader header;
    header.patient = kDemoPatient;
    header.start = signal::StartTime{2026, 1, 5, 9, 0, 0, 0};
    header.record_count = demo.Seconds();
    for (const std::string& label : demo.Labels()) {
        signal::EdfWriterSignal written;
        written.label = "EEG " + label;
        written.samples = demo.Rate();
        written.transducer = "made-up signal";
        header.signals.push_back(written);
    }
    return header;
}

} // namespace

void WriteDemoRecording(const std::string& path, DemoSignal& demo, const std::function<void(double)>& told) {
    signal::EdfWriter writer(path, HeaderOf(demo));
    std::vector<std::vector<double>> samples;
    auto annotation = demo.Annotations().begin();
    for (std::uint64_t second = 0; second < demo.Seconds(); ++second) {
        std::vector<signal::Annotation> inThisSecond;
        while (annotation != demo.Annotations().end() &&
               annotation->onset_s < static_cast<double>(second + 1)) {
            inThisSecond.push_back(*annotation++);
        }
        demo.NextSecond(samples);
        writer.WriteRecord(samples, inThisSecond);
        if (told) {
            told(static_cast<double>(second + 1) / static_cast<double>(demo.Seconds()));
        }
    }
    writer.Finish();
}

} // namespace orvanta::cli
