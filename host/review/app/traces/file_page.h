// SPDX-License-Identifier: GPL-3.0-or-later
// A page straight from the file.
#pragma once

#include "host/review/app/traces/line_group.h"
#include "host/review/app/traces/trace_filter.h"
#include "host/review/app/traces/trace_page.h"

namespace orvanta::review {

/// The least number of a stretch's samples at or after \p samples, to within 1e-6 of a sample and kept
/// between 0 and \p count: which sample of a segment is the first at or after a time.
std::int64_t SampleFrom(double samples, std::int64_t count);

/// Filters start so long before a page that they have settled, but at most 300 s before.
inline constexpr double kLongestSettling = 300;

/// What a page takes from the file, and the page. Exact: a column holds the least and greatest of the samples
/// from its begin (included) to the next column's.
class FilePage {
public:
    FilePage(const signal::Recording& recording, std::span<const TraceChannel> lines,
             const TraceFilter& filter, const PageRequest& request);

    /// About how long reading takes on an ordinary desktop, the filters' settling included.
    double Seconds() const;
    /// Whether all lines that have samples here are runs.
    bool HasRunsOnly() const;
    /// One read of the file. \throws signal::RecordingError when it cannot be read any more
    TracePage Read();

private:
    /// What lies of a group in one segment.
    struct Piece {
        signal::Segment segment;
        signal::SampleRange shown; ///< stored samples
        std::int64_t from = 0;     ///< stored sample at which filters start
    };
    struct Part {
        LineGroup group;
        bool asRuns = false;
        std::vector<std::vector<Biquad>> sections; ///< by member
        std::vector<Piece> pieces;
    };

    std::uint64_t Bytes() const;
    void FindPieces(Part& part, std::int64_t settling) const;
    /// First samples of the columns, and of what follows the last, counted from the segment's begin.
    std::vector<std::int64_t> EdgesIn(const signal::Segment& segment, double rate) const;
    void ReadPiece(Part& part, const Piece& piece, const std::byte* bytes, TracePage& page) const;

    const signal::Recording& recording_;
    PageRequest request_;
    std::size_t lineCount_;
    std::vector<Part> parts_;
    std::uint64_t firstBlock_ = 0;
    std::uint64_t blockCount_ = 0;
};

} // namespace orvanta::review
