// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/bucket_grid.h"

#include <algorithm>
#include <cmath>

namespace orvanta::review {

namespace {

/// Levels end where so few buckets are left that looking at each costs nothing.
constexpr std::size_t kFewBuckets = 16;

} // namespace

BucketGrid::BucketGrid(const signal::Timeline& time, std::int64_t samples) : samples_(samples) {
    Level base;
    std::int64_t end = 0;
    for (const signal::Segment& segment : time.Segments()) {
        elapsed_.push_back(
            std::max(end, static_cast<std::int64_t>(std::llround(segment.start_s * time.Rate()))));
        end = elapsed_.back() + segment.count;
        const std::int64_t first = elapsed_.back() / samples_;
        const std::int64_t last = (end - 1) / samples_ + 1;
        if (!base.empty() && first <= base.back().last) {
            base.back().last = last;
        } else {
            base.push_back({first, last, 0});
        }
    }
    Append(std::move(base));
    while (bucketCount_ - levels_.back().front().bucket > kFewBuckets) {
        Level above;
        for (const Island& island : levels_.back()) {
            const std::int64_t first = island.first / 4;
            const std::int64_t last = (island.last - 1) / 4 + 1;
            if (!above.empty() && first <= above.back().last) {
                above.back().last = last;
            } else {
                above.push_back({first, last, 0});
            }
        }
        Append(std::move(above));
    }
}

void BucketGrid::Append(Level level) {
    for (Island& island : level) {
        island.bucket = bucketCount_;
        bucketCount_ += static_cast<std::size_t>(island.last - island.first);
    }
    levels_.push_back(std::move(level));
    ends_.push_back(bucketCount_);
}

std::int64_t BucketGrid::EndCell() const {
    return levels_.front().back().last;
}

std::size_t BucketGrid::BucketAt(std::size_t level, std::int64_t cell) const {
    const Level& islands = levels_[level];
    const auto island = std::partition_point(islands.begin(), islands.end(),
                                             [&](const Island& earlier) { return earlier.last <= cell; });
    if (island == islands.end()) {
        return ends_[level];
    }
    return island->bucket + static_cast<std::size_t>(std::max<std::int64_t>(0, cell - island->first));
}

std::int64_t BucketGrid::CellOf(std::size_t level, std::size_t bucket) const {
    const Level& islands = levels_[level];
    const auto after = std::partition_point(islands.begin(), islands.end(),
                                            [&](const Island& earlier) { return earlier.bucket <= bucket; });
    const Island& island = *std::prev(after);
    return island.first + static_cast<std::int64_t>(bucket - island.bucket);
}

void BucketGrid::Cover(std::int64_t begin, std::int64_t end, std::vector<BucketRange>& ranges) const {
    const auto append = [&](std::size_t level, std::int64_t from, std::int64_t to) {
        const BucketRange range{BucketAt(level, from), BucketAt(level, to)};
        if (range.first < range.last) {
            ranges.push_back(range);
        }
    };
    for (std::size_t level = 0; begin < end; ++level) {
        const std::int64_t inner = (begin + 3) / 4;
        const std::int64_t innerEnd = end / 4;
        if (level + 1 == levels_.size() || inner >= innerEnd) {
            append(level, begin, end);
            return;
        }
        append(level, begin, 4 * inner);
        append(level, 4 * innerEnd, end);
        begin = inner;
        end = innerEnd;
    }
}

} // namespace orvanta::review
