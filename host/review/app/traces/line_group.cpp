// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/line_group.h"

#include "host/spectral_data/engine/kernel/interleave.h"

#include <algorithm>
#include <stdexcept>

namespace orvanta::review {

LineGroup::LineGroup(const signal::Recording& recording, std::span<const TraceChannel> lines,
                     std::vector<std::size_t> members)
    : source_(recording.Source()), members_(std::move(members)) {
    std::map<std::size_t, std::size_t> rows;
    std::map<const std::vector<TraceTerm>*, std::size_t> averages;
    for (const std::size_t member : members_) {
        const TraceChannel& line = lines[member];
        sums_.push_back(SumOf(line.terms, rows));
        const std::vector<TraceTerm>* average = line.average.get();
        if (average != nullptr && averages.emplace(average, averages_.size()).second) {
            averages_.push_back(SumOf(*average, rows));
        }
        averageOf_.push_back(average == nullptr ? std::size_t(-1) : averages.at(average));
    }
    perBlock_ = source_.Layout(signals_.front()).samples;
    for (const std::size_t signal : signals_) {
        if (source_.Layout(signal).samples != perBlock_) {
            throw std::invalid_argument("the signals of a line have different rates");
        }
    }
    time_ = recording.TimeOf(signals_.front());
    stored_.resize(signals_.size() * kTile);
    averaged_.resize(averages_.size() * kTile);
    values_.resize(kTile);
}

LineGroup::Sum LineGroup::SumOf(const std::vector<TraceTerm>& terms,
                                std::map<std::size_t, std::size_t>& rows) {
    Sum sum;
    for (const TraceTerm& term : terms) {
        const auto [row, isNew] = rows.emplace(term.signal, signals_.size());
        if (isNew) {
            signals_.push_back(term.signal);
        }
        sum.shares.push_back({row->second, term.weight * term.gain});
        sum.offset += term.weight * term.offset;
    }
    return sum;
}

void LineGroup::Take(const std::byte* block, std::uint32_t first, std::uint32_t count) {
    count_ = count;
    for (std::size_t row = 0; row < signals_.size(); ++row) {
        const signal::SignalLayout& layout = source_.Layout(signals_[row]);
        spectral::Decode(layout.format, block + layout.offset + first * layout.stride, layout.stride, count,
                         stored_.data() + row * kTile);
    }
    for (std::size_t average = 0; average < averages_.size(); ++average) {
        Work(averages_[average], averaged_.data() + average * kTile);
    }
}

void LineGroup::Work(const Sum& sum, double* values) const {
    std::fill_n(values, count_, sum.offset);
    for (const Share& share : sum.shares) {
        const float* stored = stored_.data() + share.row * kTile;
        for (std::uint32_t i = 0; i < count_; ++i) {
            values[i] += share.factor * static_cast<double>(stored[i]);
        }
    }
}

std::span<double> LineGroup::ValuesOf(std::size_t member) {
    Work(sums_[member], values_.data());
    if (const std::size_t average = averageOf_[member]; average < averages_.size()) {
        const double* mean = averaged_.data() + average * kTile;
        for (std::uint32_t i = 0; i < count_; ++i) {
            values_[i] -= mean[i];
        }
    }
    return {values_.data(), count_};
}

std::vector<LineGroup> GroupsOf(const signal::Recording& recording, std::span<const TraceChannel> lines) {
    std::vector<std::pair<double, std::vector<std::size_t>>> byRate;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        const double rate = lines[line].rate;
        if (lines[line].terms.empty() || !(rate > 0)) {
            continue;
        }
        auto known = std::find_if(byRate.begin(), byRate.end(),
                                  [&](const auto& group) { return group.first == rate; });
        if (known == byRate.end()) {
            known = byRate.insert(byRate.end(), {rate, {}});
        }
        known->second.push_back(line);
    }
    std::vector<LineGroup> groups;
    for (auto& [rate, members] : byRate) {
        LineGroup group(recording, lines, std::move(members));
        if (group.Time().SampleCount() > 0) {
            groups.push_back(std::move(group));
        }
    }
    return groups;
}

} // namespace orvanta::review
