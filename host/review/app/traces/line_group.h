// SPDX-License-Identifier: GPL-3.0-or-later
// Values of lines, straight from the bytes of a recording's blocks.
#pragma once

#include "host/review/app/traces/trace_channel.h"
#include "host/signal_base/recording.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace orvanta::review {

/// Lines of one rate that lie in time as one. A value is Σ weight × (gain × stored value + offset), less the
/// mean of the average reference, summed in double in the order of the terms: the same bits wherever a
/// stretch begins. Not for several threads at once.
class LineGroup {
public:
    /// Samples that are worked out in one go, at most.
    static constexpr std::uint32_t kTile = 1024;

    /// \param members numbers of the lines: at least one, each with a term, all at one rate
    /// \throws std::invalid_argument when their signals have different numbers of samples in a block
    LineGroup(const signal::Recording& recording, std::span<const TraceChannel> lines,
              std::vector<std::size_t> members);

    /// Numbers of the lines.
    const std::vector<std::size_t>& Members() const { return members_; }
    double Rate() const { return time_.Rate(); }
    const signal::Timeline& Time() const { return time_; }
    std::uint32_t SamplesPerBlock() const { return perBlock_; }

    /// Takes up to kTile samples, \p count of a block in memory from its sample \p first.
    void Take(const std::byte* block, std::uint32_t first, std::uint32_t count);
    /// Values of a member (by position in Members()) at the samples taken; valid until the next call. The
    /// caller may change them in place.
    std::span<double> ValuesOf(std::size_t member);

private:
    struct Share {
        std::size_t row = 0; ///< of the decoded signals, or of the averages
        double factor = 0;   ///< weight × gain
    };
    struct Sum {
        std::vector<Share> shares;
        double offset = 0;
    };

    Sum SumOf(const std::vector<TraceTerm>& terms, std::map<std::size_t, std::size_t>& rows);
    void Work(const Sum& sum, double* values) const;

    const signal::BlockSource& source_;
    std::vector<std::size_t> members_;
    signal::Timeline time_;
    std::uint32_t perBlock_ = 0;
    std::vector<std::size_t> signals_; ///< by row
    std::vector<Sum> sums_;            ///< by member
    std::vector<Sum> averages_;
    std::vector<std::size_t> averageOf_; ///< by member; the number of averages for none
    std::uint32_t count_ = 0;
    std::vector<float> stored_;    ///< row × kTile
    std::vector<double> averaged_; ///< average × kTile
    std::vector<double> values_;
};

/// The lines by rate, in the order in which the rates appear. Lines without terms, or of signals without
/// samples, are in none.
std::vector<LineGroup> GroupsOf(const signal::Recording& recording, std::span<const TraceChannel> lines);

/// Calls visit(first sample, member, values) for every member and the stored samples of \p range, which lie
/// in the blocks in memory; in time order, in pieces of up to LineGroup::kTile. \param bytes blocks, the
/// first of which is block \p firstBlock \param stop asked between pieces; true ends it \return false when
/// stopped
template <typename Visit, typename Stop>
bool ForEachTile(LineGroup& group, const std::byte* bytes, std::uint64_t firstBlock, std::size_t blockBytes,
                 signal::SampleRange range, Visit visit, Stop stop) {
    const std::int64_t perBlock = group.SamplesPerBlock();
    for (std::int64_t sample = range.first; sample < range.last;) {
        const std::int64_t block = sample / perBlock;
        const std::int64_t within = sample % perBlock;
        const std::int64_t count =
            std::min({std::int64_t{LineGroup::kTile}, perBlock - within, range.last - sample});
        group.Take(bytes + (static_cast<std::uint64_t>(block) - firstBlock) * blockBytes,
                   static_cast<std::uint32_t>(within), static_cast<std::uint32_t>(count));
        for (std::size_t member = 0; member < group.Members().size(); ++member) {
            visit(sample, member, group.ValuesOf(member));
        }
        sample += count;
        if (stop()) {
            return false;
        }
    }
    return true;
}

} // namespace orvanta::review
