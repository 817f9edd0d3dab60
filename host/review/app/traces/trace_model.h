// SPDX-License-Identifier: GPL-3.0-or-later
// Which lines are shown, and their values.
#pragma once

#include "host/review/app/traces/trace_picture.h"
#include "host/review/app/traces/trace_state.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace orvanta::review {

/// The lines of a recording without those that are hidden, and the values of the page that was asked for
/// last. The recording must outlive it. GUI thread.
class TraceModel {
public:
    explicit TraceModel(EEGFileInfoType& recording);

    TraceState& State() { return state_; }
    const TraceState& State() const { return state_; }
    TraceStore& Store() { return store_; }

    /// All lines, hidden ones too.
    const std::vector<TraceChannel>& Channels() const { return channels_; }
    /// Numbers of the lines that are not hidden.
    const std::vector<std::size_t>& Shown() const { return shown_; }
    /// Number of a line on the page. \param line counted from the first one shown
    std::size_t LineOf(const TraceLayout& layout, int line) const;
    /// Seconds of the whole recording.
    double Total() const;
    const std::vector<TraceGap>& Gaps() const { return gaps_; }
    const std::optional<signal::StartTime>& StartTime() const;

    /// Takes the lines from the recording anew: after another montage, a bad mark or another filter.
    void Reload();
    const std::set<std::string>& Hidden() const { return hidden_; }
    void SetHidden(std::set<std::string> names);

    const std::string& Selected() const { return selected_; }
    void Select(const std::string& name) { selected_ = name; }
    const TraceChannel* SelectedChannel() const;
    /// The line that shows a channel or an electrode: of that name, else the first whose name begins with it
    /// and "-". \return place among Shown()
    std::optional<std::size_t> FindShown(const std::string& name) const;

    /// Reads the lines of the page, unless they are the ones read last. A failure is kept in Failure().
    /// \param columns of the screen
    void ReadPage(const TraceLayout& layout, int columns);
    /// The page is read anew the next time.
    void ForgetPage() { page_.reset(); }
    /// In one line; empty when all could be read.
    const std::string& Failure() const { return failure_; }
    /// The lines read last, from the top, with scaling for the layout.
    std::vector<LineInput> Lines(const TraceLayout& layout, double millimetre);

    /// Of the strip of the whole recording with so many columns.
    const OverviewInput& Overview(int columns);
    /// The strip is read anew the next time.
    void ForgetOverview() { overviewColumns_ = -1; }
    /// Whether the one made last is of the whole recording, or of as much as could be looked at.
    bool IsOverviewComplete() const;

private:
    struct Page {
        PageRequest request;
        std::vector<std::size_t> lines;
        TracePage data;
    };

    void List();
    double UnitsPerPixel(const TraceChannel& channel, const TraceLine& line, const TraceLayout& layout,
                         double millimetre);
    bool IsNegativeUp(const TraceChannel& channel) const;

    EEGFileInfoType& recording_;
    TraceStore store_;
    TraceState state_;
    std::vector<TraceChannel> channels_;
    std::vector<std::size_t> shown_;
    std::set<std::string> hidden_;
    std::string selected_;
    std::vector<TraceGap> gaps_;
    std::optional<Page> page_;
    std::string failure_;
    std::map<std::string, double> ranges_; ///< of lines in other units than µV, by name, when first seen
    OverviewInput overview_;
    int overviewColumns_ = -1;
};

} // namespace orvanta::review
