// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/brainvision/assemble.h"

#include "host/signal_base/brainvision/frame_source.h"
#include "host/signal_base/brainvision/number_check.h"
#include "host/signal_base/brainvision/segments.h"
#include "host/signal_base/limited_list.h"
#include "host/signal_base/text_encoding.h"
#include "host/signal_base/timeline.h"

#include <algorithm>
#include <cmath>

namespace orvanta::signal::brainvision {

namespace {

constexpr std::size_t kMaxBlockBytes = std::size_t{1} << 20;

/// Frames of a block: a second, in at most a mebibyte.
std::uint64_t LongestBlock(const FrameLayout& layout, double rate_hz) {
    const std::uint64_t fitting = std::max<std::uint64_t>(kMaxBlockBytes / layout.FrameBytes(), 1);
    const double second = std::round(rate_hz);
    return second < static_cast<double>(fitting) ? static_cast<std::uint64_t>(std::max(second, 1.0))
                                                 : fitting;
}

Timeline MakeTimeline(const Segments& time, double rate_hz, std::uint64_t frames) {
    std::vector<Segment> segments;
    for (const BlockSegment& segment : time.segments) {
        const std::uint64_t first = segment.first_block * time.block_frames;
        const std::uint64_t count = std::min(segment.count * time.block_frames, frames - first);
        segments.push_back(
            {static_cast<std::int64_t>(first), static_cast<std::int64_t>(count), segment.start_s});
    }
    return {rate_hz, std::move(segments)};
}

/// A new segment is an event only when it says something, such as how many samples were lost.
bool IsEvent(const Marker& marker) {
    return !IsNewSegment(marker) || !marker.description.empty();
}

std::vector<Annotation> MakeAnnotations(const std::vector<Marker>& markers, const Timeline& time,
                                        LimitedList& list) {
    std::vector<Annotation> annotations;
    for (const Marker& marker : markers) {
        if (!IsEvent(marker)) {
            continue;
        }
        if (marker.frame >= static_cast<std::uint64_t>(time.SampleCount())) {
            list.Add("line " + std::to_string(marker.line) + ": marker " + Quoted(TextOf(marker)) +
                     " lies beyond the data, left out");
            continue;
        }
        Annotation annotation;
        annotation.onset_s = time.TimeOf(static_cast<std::int64_t>(marker.frame));
        if (marker.size > 1) {
            annotation.duration_s = static_cast<double>(marker.size) / time.Rate();
        }
        annotation.text = TextOf(marker);
        annotations.push_back(std::move(annotation));
    }
    return annotations;
}

} // namespace

RecordingData Assemble(Header header, const std::vector<Marker>& markers, const std::string& markerName,
                       std::shared_ptr<const DataFile> dataFile, std::vector<std::string> repairs) {
    SettleChannels(header, dataFile->Size(), repairs);
    const FrameLayout layout = LayOutFrames(header, dataFile->Size(), dataFile->Path(), repairs);
    if (layout.frames == 0) {
        repairs.emplace_back("the data file has no data point, there is nothing to analyse");
    }
    Segments time = LayOutSegments(markers, header.rate_hz, layout.frames,
                                   LongestBlock(layout, header.rate_hz), markerName, repairs);
    RecordingData data;
    data.format = "BrainVision";
    data.start = time.start;
    data.block_seconds = static_cast<double>(time.block_frames) / header.rate_hz;
    {
        LimitedList list(repairs, markerName + ": ");
        data.annotations = MakeAnnotations(markers, MakeTimeline(time, header.rate_hz, layout.frames), list);
    }
    data.segments = std::move(time.segments);
    data.signals = std::move(header.signals);
    data.source = std::make_shared<FrameSource>(std::move(dataFile), layout,
                                                static_cast<std::uint32_t>(time.block_frames));
    CheckNumbers(data.signals, *data.source, repairs);
    data.repairs = std::move(repairs);
    return data;
}

} // namespace orvanta::signal::brainvision
