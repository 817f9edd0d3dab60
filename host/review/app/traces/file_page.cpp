// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/file_page.h"

#include "host/review/app/traces/extremes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvanta::review {

namespace {

// What an ordinary desktop takes, rounded up.
constexpr double kSecondsPerByte = 0.5e-9;
constexpr double kSecondsPerValue = 5e-9;
constexpr double kSecondsPerFiltered = 5e-9;

constexpr auto kNeverStop = [] { return false; };

/// Appends values to the last run, or to a new one after a break.
class RunWriter {
public:
    RunWriter(const signal::Segment& segment, double rate, std::size_t expected)
        : segment_(segment), rate_(rate), expected_(expected) {}

    void Append(std::vector<TraceRun>& runs, std::int64_t sample, std::span<const double> values) {
        for (const double value : values) {
            const auto rounded = static_cast<float>(value);
            if (!std::isfinite(rounded)) {
                open_ = false;
            } else {
                if (!open_) {
                    const auto inside = static_cast<double>(sample - segment_.first_sample);
                    runs.push_back({segment_.start_s + inside / rate_, 1 / rate_, {}});
                    runs.back().values.reserve(expected_);
                    open_ = true;
                }
                runs.back().values.push_back(rounded);
            }
            ++sample;
        }
        expected_ = 0; // after a break the vector grows as it will
    }

private:
    signal::Segment segment_;
    double rate_;
    std::size_t expected_;
    bool open_ = false;
};

/// Fills columns with values that follow each other.
class ColumnWriter {
public:
    /// \param edges first samples of the columns and of what follows the last, ascending
    explicit ColumnWriter(const std::vector<std::int64_t>& edges) : edges_(edges) {}

    void Append(std::vector<TraceColumn>& columns, std::int64_t sample, std::span<const double> values) {
        while (!values.empty() && column_ + 1 < edges_.size()) {
            const std::int64_t left = edges_[column_ + 1] - sample;
            if (left <= 0) {
                ++column_;
                continue;
            }
            const auto here = std::min(values.size(), static_cast<std::size_t>(left));
            Widen(columns[column_], ExtremesOf(values.first(here)));
            values = values.subspan(here);
            sample += static_cast<std::int64_t>(here);
        }
    }

private:
    const std::vector<std::int64_t>& edges_;
    std::size_t column_ = 0;
};

} // namespace

std::int64_t SampleFrom(double samples, std::int64_t count) {
    constexpr double kTolerance = 1e-6;
    if (!(samples > 0)) {
        return 0;
    }
    return samples >= static_cast<double>(count)
               ? count
               : std::min(count, static_cast<std::int64_t>(std::ceil(samples - kTolerance)));
}

FilePage::FilePage(const signal::Recording& recording, std::span<const TraceChannel> lines,
                   const TraceFilter& filter, const PageRequest& request)
    : recording_(recording), request_(request), lineCount_(lines.size()) {
    if (!IsPage(request)) {
        return;
    }
    std::uint64_t lastBlock = 0;
    firstBlock_ = std::numeric_limits<std::uint64_t>::max();
    for (LineGroup& group : GroupsOf(recording, lines)) {
        Part part{std::move(group), false, {}, {}};
        const double rate = part.group.Rate();
        part.asRuns = rate * request.duration <= kRunSamples * request.columns;
        std::int64_t settling = 0;
        for (const std::size_t line : part.group.Members()) {
            part.sections.push_back(SectionsOf(filter, lines[line]));
            settling = std::max(settling,
                                SettlingSamples(part.sections.back(), std::llround(kLongestSettling * rate)));
        }
        FindPieces(part, settling);
        for (const Piece& piece : part.pieces) {
            const std::int64_t perBlock = part.group.SamplesPerBlock();
            firstBlock_ = std::min(firstBlock_, static_cast<std::uint64_t>(piece.from / perBlock));
            lastBlock = std::max(lastBlock, static_cast<std::uint64_t>((piece.shown.last - 1) / perBlock));
        }
        parts_.push_back(std::move(part));
    }
    blockCount_ = firstBlock_ <= lastBlock ? lastBlock - firstBlock_ + 1 : 0;
}

void FilePage::FindPieces(Part& part, std::int64_t settling) const {
    const double rate = part.group.Rate();
    const std::int64_t perBlock = part.group.SamplesPerBlock();
    for (const signal::Segment& segment : part.group.Time().Segments()) {
        const double begin = (request_.start - segment.start_s) * rate;
        const double end = begin + request_.duration * rate;
        if (!(end > 0) || begin >= static_cast<double>(segment.count)) {
            continue;
        }
        std::int64_t first = SampleFrom(begin, segment.count);
        std::int64_t last = SampleFrom(end, segment.count);
        if (part.asRuns) {
            first = std::max<std::int64_t>(0, first - 1);
            last = std::min(segment.count, last + 1);
        }
        if (first < last) {
            const std::int64_t settled = std::max<std::int64_t>(0, first - settling) + segment.first_sample;
            const std::int64_t from =
                settling > 0 ? settled / perBlock * perBlock : first + segment.first_sample;
            part.pieces.push_back({segment,
                                   {segment.first_sample + first, segment.first_sample + last},
                                   std::max(from, segment.first_sample)});
        }
    }
}

double FilePage::Seconds() const {
    double seconds = kSecondsPerByte * static_cast<double>(Bytes());
    for (const Part& part : parts_) {
        double perSample = 0;
        for (const std::vector<Biquad>& sections : part.sections) {
            perSample += kSecondsPerValue + kSecondsPerFiltered * static_cast<double>(sections.size());
        }
        for (const Piece& piece : part.pieces) {
            seconds += perSample * static_cast<double>(piece.shown.last - piece.from);
        }
    }
    return seconds;
}

std::uint64_t FilePage::Bytes() const {
    return blockCount_ * recording_.Source().BlockBytes();
}

bool FilePage::HasRunsOnly() const {
    return std::all_of(parts_.begin(), parts_.end(), [](const Part& part) { return part.asRuns; });
}

std::vector<std::int64_t> FilePage::EdgesIn(const signal::Segment& segment, double rate) const {
    const double begin = (request_.start - segment.start_s) * rate;
    const double perColumn = request_.duration / request_.columns * rate;
    std::vector<std::int64_t> edges;
    for (int column = 0; column <= request_.columns; ++column) {
        edges.push_back(SampleFrom(begin + column * perColumn, segment.count));
    }
    return edges;
}

void FilePage::ReadPiece(Part& part, const Piece& piece, const std::byte* bytes, TracePage& page) const {
    const std::vector<std::size_t>& members = part.group.Members();
    const double rate = part.group.Rate();
    const std::vector<std::int64_t> edges =
        part.asRuns ? std::vector<std::int64_t>{} : EdgesIn(piece.segment, rate);
    std::vector<FilterRun> filters;
    for (const std::vector<Biquad>& sections : part.sections) {
        filters.emplace_back(sections);
    }
    const auto length = static_cast<std::size_t>(piece.shown.Length());
    std::vector<RunWriter> runs(members.size(), RunWriter(piece.segment, rate, length));
    std::vector<ColumnWriter> columns(members.size(), ColumnWriter(edges));
    const auto visit = [&](std::int64_t sample, std::size_t member, std::span<double> values) {
        filters[member].Apply(values);
        const auto settling =
            std::clamp<std::int64_t>(piece.shown.first - sample, 0, static_cast<std::int64_t>(values.size()));
        const std::span<const double> shown = values.subspan(static_cast<std::size_t>(settling));
        const std::int64_t first = sample + settling;
        TraceLine& line = page.lines[members[member]];
        if (part.asRuns) {
            runs[member].Append(line.runs, first, shown);
        } else {
            columns[member].Append(line.columns, first - piece.segment.first_sample, shown);
        }
    };
    ForEachTile(part.group, bytes, firstBlock_, recording_.Source().BlockBytes(),
                {piece.from, piece.shown.last}, visit, kNeverStop);
}

TracePage FilePage::Read() {
    TracePage page;
    page.lines.resize(lineCount_);
    std::unique_ptr<std::byte[]> bytes;
    if (blockCount_ > 0) {
        bytes = std::make_unique_for_overwrite<std::byte[]>(Bytes());
        recording_.Source().Read(firstBlock_, blockCount_, bytes.get());
    }
    for (Part& part : parts_) {
        for (const std::size_t member : part.group.Members()) {
            page.lines[member].columns.resize(part.asRuns ? 0 : static_cast<std::size_t>(request_.columns));
        }
        for (const Piece& piece : part.pieces) {
            ReadPiece(part, piece, bytes.get(), page);
        }
    }
    return page;
}

} // namespace orvanta::review
