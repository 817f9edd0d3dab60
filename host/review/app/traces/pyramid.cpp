// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/pyramid.h"

#include "host/review/app/traces/extremes.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <limits>
#include <map>

namespace orvanta::review {

namespace {

constexpr double kLeastSamples = 16;
constexpr std::uint64_t kPieceBytes = std::uint64_t{1} << 20;
// Times come from divisions; a millionth of a cell absorbs their rounding.
constexpr double kRounding = 1e-6;
constexpr std::int64_t kAllCells = std::numeric_limits<std::int64_t>::max();

/// Cells of the rate whose length is next to, and not above, so many seconds.
BucketGrid GridOf(const signal::Timeline& time, double seconds) {
    const double samples = std::clamp(seconds * time.Rate(), 1.0, 0x1p40);
    return {time, static_cast<std::int64_t>(std::bit_floor(static_cast<std::uint64_t>(samples)))};
}

std::size_t BytesOf(const std::vector<LineGroup>& lines, double seconds) {
    std::size_t bytes = 0;
    for (const LineGroup& group : lines) {
        bytes += group.Members().size() * GridOf(group.Time(), seconds).BucketCount() * sizeof(TraceColumn);
    }
    return bytes;
}

/// Of a bucket, so that all of them stay below the budget; no budget asks for more than one bucket a line.
double SecondsWithin(std::size_t budget, const std::vector<LineGroup>& lines) {
    double fastest = 0, duration = 0;
    for (const LineGroup& group : lines) {
        fastest = std::max(fastest, group.Rate());
        duration = std::max(duration, group.Time().Duration());
    }
    double seconds = kLeastSamples / fastest;
    while (seconds < duration && BytesOf(lines, seconds) > budget) {
        seconds *= 2;
    }
    return seconds;
}

/// What the columns of a page take, the same for all lines of a rate.
struct ColumnRanges {
    std::vector<BucketRange> ranges;
    std::vector<std::size_t> ends; ///< by column: its ranges end before this one
    bool complete = true;
};

} // namespace

struct Pyramid::Group {
    Group(LineGroup made, double seconds) : lines(std::move(made)), grid(GridOf(lines.Time(), seconds)) {}

    /// Cells from the recording's start to a time in seconds; -1 before it, and all of them behind the last.
    double CellsTo(double time) const {
        const double cells = time * lines.Rate() / static_cast<double>(grid.SamplesPerCell());
        return std::clamp(cells, -1.0, static_cast<double>(grid.EndCell()));
    }
    /// The cell of a time.
    std::int64_t CellAt(double time) const {
        return static_cast<std::int64_t>(std::floor(CellsTo(time) + kRounding));
    }

    void Add(std::size_t member, std::int64_t elapsed, std::span<const double> values);
    void Close(std::int64_t cell);
    ColumnRanges RangesOf(const PageRequest& request) const;

    LineGroup lines;
    BucketGrid grid;
    std::vector<FilterRun> filters;                ///< by member
    std::vector<std::vector<TraceColumn>> buckets; ///< by member
    std::size_t segment = 0;                       ///< that comes next, or is under way
    std::atomic<std::int64_t> built = 0;           ///< cells below this one are there, on every level
};

void Pyramid::Group::Add(std::size_t member, std::int64_t elapsed, std::span<const double> values) {
    const std::int64_t perCell = grid.SamplesPerCell();
    // One segment's cells follow each other in memory too.
    TraceColumn* bucket = buckets[member].data() + grid.BucketAt(0, elapsed / perCell);
    auto room = static_cast<std::size_t>(perCell - elapsed % perCell);
    while (!values.empty()) {
        const std::size_t here = std::min(room, values.size());
        Widen(*bucket, ExtremesOf(values.first(here)));
        values = values.subspan(here);
        room = static_cast<std::size_t>(perCell);
        ++bucket;
    }
}

/// Makes the upper levels of the cells before \p cell and hands them to the reader.
void Pyramid::Group::Close(std::int64_t cell) {
    const std::int64_t end = grid.EndCell();
    std::int64_t from = std::min(end, built.load(std::memory_order_relaxed));
    std::int64_t to = std::min(end, cell);
    for (std::size_t level = 1; level < grid.LevelCount(); ++level) {
        const bool isLast = cell >= end;
        from /= 4;
        to = isLast ? (to + 3) / 4 : to / 4;
        std::size_t parent = grid.BucketAt(level, from);
        const std::size_t parentEnd = grid.BucketAt(level, to);
        for (; parent < parentEnd; ++parent) {
            const std::int64_t at = grid.CellOf(level, parent);
            const std::size_t child = grid.BucketAt(level - 1, 4 * at);
            const std::size_t childEnd = grid.BucketAt(level - 1, 4 * at + 4);
            for (std::vector<TraceColumn>& line : buckets) {
                TraceColumn all;
                for (std::size_t i = child; i < childEnd; ++i) {
                    Widen(all, line[i]);
                }
                line[parent] = all;
            }
        }
    }
    built.store(cell >= end ? kAllCells : cell, std::memory_order_release);
}

ColumnRanges Pyramid::Group::RangesOf(const PageRequest& request) const {
    const std::int64_t there = std::min(built.load(std::memory_order_acquire), grid.EndCell());
    ColumnRanges found;
    std::int64_t begin = CellAt(request.start);
    for (int column = 1; column <= request.columns; ++column) {
        const std::int64_t next = CellAt(request.start + request.duration * column / request.columns);
        const std::int64_t end = std::min(std::max(begin + 1, next), grid.EndCell());
        found.complete = found.complete && end <= there;
        grid.Cover(begin, std::min(end, there), found.ranges);
        found.ends.push_back(found.ranges.size());
        begin = next;
    }
    return found;
}

Pyramid::Pyramid(std::shared_ptr<const signal::Recording> recording, std::vector<TraceChannel> lines,
                 const TraceFilter& filter, std::size_t budget)
    : recording_(std::move(recording)), places_(lines.size()) {
    std::vector<LineGroup> byRate = GroupsOf(*recording_, lines);
    const double seconds = byRate.empty() ? 0 : SecondsWithin(budget, byRate);
    for (LineGroup& made : byRate) {
        auto group = std::make_unique<Group>(std::move(made), seconds);
        const std::vector<std::size_t>& members = group->lines.Members();
        for (std::size_t member = 0; member < members.size(); ++member) {
            group->filters.emplace_back(SectionsOf(filter, lines[members[member]]));
            places_[members[member]] = {group.get(), member};
        }
        groups_.push_back(std::move(group));
    }
}

Pyramid::~Pyramid() = default;

bool Pyramid::AddBlocks(Group& group, const std::byte* bytes, std::uint64_t firstBlock, std::uint64_t count,
                        const std::stop_token& stop) const {
    const std::int64_t perBlock = group.lines.SamplesPerBlock();
    const auto first = static_cast<std::int64_t>(firstBlock) * perBlock;
    const std::int64_t last = first + static_cast<std::int64_t>(count) * perBlock;
    const std::vector<signal::Segment>& segments = group.lines.Time().Segments();
    for (; group.segment < segments.size(); ++group.segment) {
        const signal::Segment& segment = segments[group.segment];
        const std::int64_t segmentEnd = segment.first_sample + segment.count;
        const signal::SampleRange range{std::max(first, segment.first_sample), std::min(last, segmentEnd)};
        if (range.first >= last) {
            break;
        }
        if (range.first == segment.first_sample) {
            std::for_each(group.filters.begin(), group.filters.end(), std::mem_fn(&FilterRun::Restart));
        }
        const std::int64_t elapsed = group.grid.ElapsedOf(group.segment) - segment.first_sample;
        const auto visit = [&](std::int64_t sample, std::size_t member, std::span<double> values) {
            group.filters[member].Apply(values);
            group.Add(member, elapsed + sample, values);
        };
        if (!ForEachTile(group.lines, bytes, firstBlock, recording_->Source().BlockBytes(), range, visit,
                         [&] { return stop.stop_requested(); })) {
            return false;
        }
        if (range.last < segmentEnd) {
            group.Close((elapsed + range.last) / group.grid.SamplesPerCell());
            return true;
        }
    }
    const std::int64_t next = group.segment < segments.size()
                                  ? group.grid.ElapsedOf(group.segment) / group.grid.SamplesPerCell()
                                  : kAllCells;
    group.Close(next);
    return true;
}

bool Pyramid::Build(const std::stop_token& stop, const std::function<void()>& grown) {
    const signal::BlockSource& source = recording_->Source();
    const std::uint64_t blocks = source.BlockCount();
    for (const auto& group : groups_) {
        for (std::size_t line = 0; line < group->lines.Members().size(); ++line) {
            if (stop.stop_requested()) {
                return false;
            }
            group->buckets.emplace_back(group->grid.BucketCount());
        }
    }
    const std::uint64_t step =
        std::max<std::uint64_t>(1, kPieceBytes / std::max<std::size_t>(1, source.BlockBytes()));
    const auto bytes = std::make_unique_for_overwrite<std::byte[]>(
        static_cast<std::size_t>(std::min(step, blocks)) * source.BlockBytes());
    for (std::uint64_t block = 0; block < blocks && !groups_.empty(); block += step) {
        if (stop.stop_requested()) {
            return false;
        }
        const std::uint64_t count = std::min(step, blocks - block);
        source.Read(block, count, bytes.get());
        for (const auto& group : groups_) {
            if (!AddBlocks(*group, bytes.get(), block, count, stop)) {
                return false;
            }
        }
        progress_.store(static_cast<double>(block + count) / static_cast<double>(blocks),
                        std::memory_order_release);
        grown();
    }
    progress_.store(1, std::memory_order_release);
    return true;
}

bool Pyramid::Covers(const PageRequest& request) const {
    return std::all_of(groups_.begin(), groups_.end(), [&](const auto& group) {
        const double needed = std::ceil(group->CellsTo(request.start + request.duration) - kRounding);
        return needed <= static_cast<double>(group->built.load(std::memory_order_acquire));
    });
}

bool Pyramid::IsFineEnough(const PageRequest& request) const {
    return std::all_of(groups_.begin(), groups_.end(), [&](const auto& group) {
        const std::int64_t samples = group->grid.SamplesPerCell();
        return samples == 1 ||
               static_cast<double>(samples) * request.columns <= request.duration * group->lines.Rate();
    });
}

TracePage Pyramid::Read(const PageRequest& request, std::span<const std::size_t> wanted) const {
    TracePage page;
    page.lines.resize(wanted.size());
    if (!IsPage(request)) {
        return page;
    }
    std::map<const Group*, ColumnRanges> known;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const auto [group, member] = places_[wanted[i]];
        if (group == nullptr) {
            continue;
        }
        const auto [found, isNew] = known.try_emplace(group);
        ColumnRanges& of = found->second;
        if (isNew) {
            of = group->RangesOf(request);
            page.complete = page.complete && of.complete;
        }
        std::vector<TraceColumn>& columns = page.lines[i].columns;
        columns.resize(static_cast<std::size_t>(request.columns));
        std::size_t range = 0;
        for (std::size_t column = 0; column < columns.size(); ++column) {
            for (; range < of.ends[column]; ++range) {
                for (std::size_t b = of.ranges[range].first; b < of.ranges[range].last; ++b) {
                    Widen(columns[column], group->buckets[member][b]);
                }
            }
        }
    }
    return page;
}

} // namespace orvanta::review
