// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/epoch_plan.h"

#include "host/spectral_data/files/number_text.h"
#include "host/spectral_data/results/errors.h"

#include <algorithm>
#include <limits>

namespace orvanta::spectral {

using Interval = SpectraMacro::TimeIntervalSelectMode;

EpochPlan PlanEpochs(const SpectraMacro& macro, const EventsManager& events,
                     const signal::Recording& recording, double cursor_s) {
    EpochPlan plan;
    if (!(recording.Rate() > 0)) {
        return plan;
    }
    plan.geometry = GetWindowGeometry(macro, recording.Rate());
    plan.spans = GetProcessedSpans(macro, events, recording.Time().Duration(), cursor_s);
    if (plan.geometry.window > 0) {
        plan.starts = GetEpochStarts(macro, recording.Time(), plan.spans, plan.geometry);
    }
    return plan;
}

std::int64_t CoveredSamples(const EpochPlan& plan) {
    const std::int64_t window = plan.geometry.window;
    std::int64_t covered = 0;
    std::int64_t end = std::numeric_limits<std::int64_t>::min(); // of the epochs so far
    for (const std::int64_t start : plan.starts) {
        covered += start + window - std::max(start, end);
        end = start + window;
    }
    return covered;
}

XTimeInterval EpochInterval(const signal::Recording& recording, const WindowGeometry& geometry,
                            std::int64_t start) {
    const double begin = recording.Time().TimeOf(start);
    return {XTime::FromSeconds(begin), XTime::FromSeconds(begin + geometry.window / recording.Rate())};
}

void RequireEpochs(const EpochPlan& plan, const SpectraMacro& macro, const signal::Recording& recording) {
    if (!plan.starts.empty()) {
        return;
    }
    const std::string window = NumberText(macro.GetFFTSeconds()) + " s";
    if (!(recording.Rate() > 0)) {
        throw NothingComputable("the recording has no EEG sensor",
                                "open a recording with EEG, or check the labels and units of its channels");
    }
    if (recording.Time().SampleCount() == 0) {
        throw NothingComputable("the recording holds no samples", "open a recording with data");
    }
    if (plan.geometry.window == 0) {
        const bool tooShort = macro.GetFFTSeconds() * recording.Rate() < 1;
        throw NothingComputable(
            "the FFT window of " + window +
                (tooShort ? " is shorter than one sample" : " is too long for a transform"),
            tooShort ? "choose a longer window" : "choose a shorter window");
    }
    if (!plan.spans.empty()) {
        throw NothingComputable("no processed interval without a gap is as long as the FFT window of " +
                                    window,
                                "choose a shorter window or other intervals");
    }
    switch (macro.GetTimeIntervalSelectMode()) {
    case Interval::ByStateEvents:
        throw NothingComputable("no accepted state event lies in the recording, or all are rejected",
                                "choose other state events or fewer rejected ones");
    case Interval::BySpotEvents:
        throw NothingComputable(
            "no accepted spot event has its segment in the recording, or all are rejected",
            "choose other spot events, another segment or fewer rejected events");
    case Interval::AllRecording:
    case Interval::ByDuration:
        break;
    }
    throw NothingComputable("the processed interval is empty, or all of it is rejected",
                            "choose a longer interval or fewer rejected events");
}

} // namespace orvanta::spectral
