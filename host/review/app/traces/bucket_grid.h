// SPDX-License-Identifier: GPL-3.0-or-later
// Buckets of equal time over a recording with gaps.
#pragma once

#include "host/signal_base/timeline.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvanta::review {

/// Numbers [first, last) of buckets in memory.
struct BucketRange {
    std::size_t first = 0;
    std::size_t last = 0;

    bool operator==(const BucketRange&) const = default;
};

/// Cells of elapsed time: cell c holds the samples c × samples to (c + 1) × samples, counted from the
/// recording's start at one rate, gaps counted. Four cells make one of the next level. Only cells that hold a
/// sample have a bucket; the buckets lie in memory level by level, each in order of time, so that what
/// belongs together in time lies together in memory, whatever the gaps.
class BucketGrid {
public:
    /// \param samples of a cell of level 0, at least 1
    BucketGrid(const signal::Timeline& time, std::int64_t samples);

    std::int64_t SamplesPerCell() const { return samples_; }
    /// Of all levels.
    std::size_t BucketCount() const { return bucketCount_; }
    std::size_t LevelCount() const { return levels_.size(); }
    /// The cell after the last one of level 0.
    std::int64_t EndCell() const;
    /// Samples from the recording's start to a segment's begin, to the nearest; never before the end of the
    /// segment that precedes it.
    std::int64_t ElapsedOf(std::size_t segment) const { return elapsed_[segment]; }
    /// The bucket of a cell, or of the next one that has one.
    std::size_t BucketAt(std::size_t level, std::int64_t cell) const;
    /// The cell of a bucket of the level.
    std::int64_t CellOf(std::size_t level, std::size_t bucket) const;
    /// Appends what covers the cells [begin, end) of level 0, in as few buckets as can be.
    void Cover(std::int64_t begin, std::int64_t end, std::vector<BucketRange>& ranges) const;

private:
    /// Cells that follow each other.
    struct Island {
        std::int64_t first = 0, last = 0; ///< [first, last)
        std::size_t bucket = 0;           ///< of the first
    };
    using Level = std::vector<Island>;

    void Append(Level level);

    std::int64_t samples_;
    std::vector<std::int64_t> elapsed_; ///< by segment
    std::vector<Level> levels_;
    std::vector<std::size_t> ends_; ///< by level: the bucket after its last
    std::size_t bucketCount_ = 0;
};

} // namespace orvanta::review
