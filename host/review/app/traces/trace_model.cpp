// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_model.h"

#include "host/review/app/traces/trace_scales.h"
#include "host/signal_base/recording.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace orvanta::review {

namespace {

/// Lines that make up the overview, at most: more look the same and take longer.
constexpr std::size_t kOverviewLines = 12;

/// The default gain of a group shows such a range of a line in another unit than µV on one line's room.
double Typical(TraceGroup group) {
    return TraceGains()[group];
}

bool IsVoltage(const TraceChannel& channel) {
    return channel.unit == "µV";
}

std::vector<TraceGap> GapsOf(const signal::Timeline& timeline) {
    std::vector<TraceGap> gaps;
    const std::vector<signal::Segment>& segments = timeline.Segments();
    for (std::size_t i = 1; i < segments.size(); ++i) {
        const signal::Segment& before = segments[i - 1];
        gaps.push_back(
            {before.start_s + static_cast<double>(before.count) / timeline.Rate(), segments[i].start_s});
    }
    return gaps;
}

} // namespace

TraceModel::TraceModel(EEGFileInfoType& recording)
    : recording_(recording), store_(recording.GetRecording()),
      gaps_(GapsOf(recording.GetRecording()->Time())) {
    Reload();
}

std::size_t TraceModel::LineOf(const TraceLayout& layout, int line) const {
    return shown_[static_cast<std::size_t>(layout.firstLine) + static_cast<std::size_t>(line)];
}

double TraceModel::Total() const {
    return recording_.GetRecording()->Time().Duration();
}

const std::optional<signal::StartTime>& TraceModel::StartTime() const {
    return recording_.GetRecording()->Data().start;
}

void TraceModel::Reload() {
    channels_ = ChannelsOf(recording_);
    store_.SetLines(channels_, state_.filter);
    ForgetPage();
    ForgetOverview();
    List();
}

void TraceModel::SetHidden(std::set<std::string> names) {
    hidden_ = std::move(names);
    List();
    ForgetPage();
    ForgetOverview();
}

void TraceModel::List() {
    shown_.clear();
    for (std::size_t i = 0; i < channels_.size(); ++i) {
        if (!hidden_.contains(channels_[i].name)) {
            shown_.push_back(i);
        }
    }
    if (!selected_.empty() && SelectedChannel() == nullptr) {
        selected_.clear();
    }
}

const TraceChannel* TraceModel::SelectedChannel() const {
    const auto found = std::find_if(shown_.begin(), shown_.end(),
                                    [this](std::size_t line) { return channels_[line].name == selected_; });
    return found == shown_.end() ? nullptr : &channels_[*found];
}

std::optional<std::size_t> TraceModel::FindShown(const std::string& name) const {
    const auto find = [this](const auto& fits) -> std::optional<std::size_t> {
        const auto found = std::find_if(shown_.begin(), shown_.end(),
                                        [&](std::size_t line) { return fits(channels_[line].name); });
        return found == shown_.end() ? std::nullopt : std::optional(found - shown_.begin());
    };
    if (name.empty()) {
        return std::nullopt;
    }
    if (const auto same = find([&](const std::string& line) { return line == name; })) {
        return same;
    }
    if (const auto first = find([&](const std::string& line) { return line.starts_with(name + "-"); })) {
        return first;
    }
    return find([&](const std::string& line) { return line.ends_with("-" + name); });
}

void TraceModel::ReadPage(const TraceLayout& layout, int columns) {
    std::vector<std::size_t> lines(static_cast<std::size_t>(layout.lineCount));
    for (int i = 0; i < layout.lineCount; ++i) {
        lines[static_cast<std::size_t>(i)] = LineOf(layout, i);
    }
    const PageRequest request{layout.start, layout.duration, std::max(1, columns)};
    if (page_ && page_->data.complete && page_->lines == lines && page_->request.start == request.start &&
        page_->request.duration == request.duration && page_->request.columns == request.columns) {
        return;
    }
    failure_.clear();
    try {
        page_ = Page{request, lines, store_.Read(request, lines)};
    } catch (const std::exception& error) {
        failure_ = error.what();
        page_ = Page{request, lines, {}};
    }
}

double TraceModel::UnitsPerPixel(const TraceChannel& channel, const TraceLine& line,
                                 const TraceLayout& layout, double millimetre) {
    const TraceGroup group = GroupOf(channel.type);
    const double gain = state_.window.gains[group];
    if (IsVoltage(channel)) {
        return gain / millimetre;
    }
    auto known = ranges_.find(channel.name);
    if (known == ranges_.end()) {
        const std::optional<TraceColumn> range = RangeOf(line);
        if (!range || !(range->high > range->low)) {
            return gain / Typical(group) / std::max(1.0, layout.spacing);
        }
        known = ranges_.emplace(channel.name, static_cast<double>(range->high) - range->low).first;
    }
    return gain / Typical(group) * known->second / std::max(1.0, layout.spacing * 0.7);
}

std::vector<LineInput> TraceModel::Lines(const TraceLayout& layout, double millimetre) {
    std::vector<LineInput> inputs;
    for (int i = 0; i < layout.lineCount; ++i) {
        const std::size_t line = LineOf(layout, i);
        LineInput& input = inputs.emplace_back();
        input.channel = &channels_[line];
        input.selected = input.channel->name == selected_;
        input.scaling.middle = layout.YOf(i);
        if (page_ && static_cast<std::size_t>(i) < page_->data.lines.size()) {
            input.data = &page_->data.lines[static_cast<std::size_t>(i)];
            input.scaling.unitsPerPixel = UnitsPerPixel(*input.channel, *input.data, layout, millimetre) *
                                          (IsNegativeUp(*input.channel) ? -1 : 1);
            input.scaling.center = state_.centered ? MeanOf(*input.data) : 0;
        }
    }
    return inputs;
}

bool TraceModel::IsNegativeUp(const TraceChannel& channel) const {
    const TraceGroup group = GroupOf(channel.type);
    return state_.negativeUp && (group == TraceGroup::Eeg || group == TraceGroup::Eog);
}

bool TraceModel::IsOverviewComplete() const {
    return overviewColumns_ >= 0 && (overview_.progress >= 1 || !store_.Failure().empty());
}

const OverviewInput& TraceModel::Overview(int columns) {
    const double progress = store_.Progress();
    if (overviewColumns_ == columns && overview_.progress == progress) {
        return overview_;
    }
    overview_ = {std::vector<float>(static_cast<std::size_t>(std::max(0, columns)), -1), progress};
    overviewColumns_ = columns;
    std::vector<std::size_t> lines;
    for (const std::size_t line : shown_) {
        if (GroupOf(channels_[line].type) == TraceGroup::Eeg && !channels_[line].bad) {
            lines.push_back(line);
        }
    }
    if (lines.size() > kOverviewLines) {
        for (std::size_t i = 0; i < kOverviewLines; ++i) {
            lines[i] = lines[i * lines.size() / kOverviewLines];
        }
        lines.resize(kOverviewLines);
    }
    if (lines.empty() || columns <= 0 || Total() <= 0) {
        return overview_;
    }
    TracePage page;
    try {
        page = store_.Read({0, Total(), columns}, lines);
    } catch (const std::exception&) {
        return overview_; // told where the page is read
    }
    std::vector<float>& activity = overview_.activity;
    for (const TraceLine& line : page.lines) {
        const std::vector<TraceColumn> ranges = ColumnsOf(line, {0, Total(), columns});
        for (std::size_t i = 0; i < activity.size(); ++i) {
            if (!ranges[i].IsEmpty()) {
                activity[i] = std::max(0.0F, activity[i]) + ranges[i].high - ranges[i].low;
            }
        }
    }
    // Twice the median fills the strip: single artefacts may be cut, the background must be seen.
    std::vector<float> known;
    std::copy_if(activity.begin(), activity.end(), std::back_inserter(known),
                 [](float value) { return value > 0; });
    if (!known.empty()) {
        const auto middle = known.begin() + static_cast<std::ptrdiff_t>(known.size() / 2);
        std::nth_element(known.begin(), middle, known.end());
        const float full = 2.5F * *middle;
        for (float& value : activity) {
            value = value < 0 ? value : std::min(1.0F, value / full);
        }
    }
    return overview_;
}

} // namespace orvanta::review
