// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/events_tsv/events_writer.h"

#include "host/signal_base/events/annotation_events.h"
#include "host/signal_base/events/event_duration.h"
#include "host/signal_base/events_tsv/events_table.h"
#include "host/signal_base/events_tsv/table_cells.h"
#include "host/signal_base/events_tsv/table_columns.h"
#include "host/signal_base/text.h"
#include "host/signal_base/text_encoding.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <optional>
#include <vector>

namespace orvanta::signal {

namespace {

constexpr std::string_view kNewTable = "onset\tduration\ttrial_type\n";
constexpr std::string_view kMissing = "n/a";

/// Whole digits without an exponent, which not every reader of tables takes.
std::string NumberText(double value) {
    constexpr std::size_t kLongest = 400;
    std::array<char, kLongest> text{};
    const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::fixed);
    return {text.begin(), end.ptr};
}

std::string BeginText(const EventRecord& event) {
    return NumberText(event.Interval.GetBeginPtr()->Seconds());
}

/// A table as it was read: its rows, and the event of each that tells one.
class OldTable {
public:
    OldTable(std::string_view text, const std::string& file) : lineEnd_(LineEndOf(text)) {
        std::vector<Annotation> annotations;
        std::vector<std::string> repairs;
        ParseEventsTable(text, file, annotations, repairs);
        mark_ = text.starts_with(kByteOrderMark);
        text.remove_prefix(mark_ ? kByteOrderMark.size() : 0);
        while (!text.empty()) {
            lines_.push_back(TakeLine(text));
        }
        events_.resize(lines_.size() + 1);
        for (EventRecord& event : EventsOf(annotations, repairs)) {
            events_[event.Line] = std::move(event);
        }
    }

    /// Lines are counted from 1, the head.
    std::size_t Lines() const { return lines_.size(); }
    std::string_view Line(std::size_t line) const { return lines_[line - 1]; }
    /// The event that a line tells; null for the head, rows that are no events and lines that are none.
    const EventRecord* Event(std::size_t line) const {
        return line < events_.size() && events_[line] ? &*events_[line] : nullptr;
    }
    std::string_view LineEnd() const { return lineEnd_; }
    bool HasMark() const { return mark_; }

private:
    std::string_view lineEnd_;
    bool mark_ = false;
    std::vector<std::string_view> lines_;
    std::vector<std::optional<EventRecord>> events_; ///< by line
};

/// The head with the columns that events need.
class NewHead {
public:
    NewHead(std::string_view line, bool complete) : cells_(CellsOf(line)), oldWidth_(cells_.size()) {
        const TableHead old(line);
        onset_ = old.PlaceOf(TableHead::kOnset);
        duration_ = Place(old, TableHead::kDuration, complete);
        const bool values = old.Has(TableHead::kValue) && !old.Has(TableHead::kTrialType);
        label_ = Place(old, values ? TableHead::kValue : TableHead::kTrialType, complete);
    }

    std::string Text() const { return JoinedCells(cells_); }

    /// \param old the row and the event that it tells; no row for a new event
    std::string Row(const EventRecord& event, std::string_view row, const EventRecord* old) const {
        std::vector<std::string> cells = old == nullptr ? std::vector<std::string>() : CellsOf(row);
        cells.resize(std::max(cells.size(), oldWidth_), std::string(kMissing));
        // A row may be longer than the head: what it has more of stays behind the new columns.
        cells.insert(cells.begin() + std::ptrdiff_t(oldWidth_), cells_.size() - oldWidth_,
                     std::string(kMissing));
        if (old == nullptr || !(old->Interval == event.Interval)) {
            cells[onset_] = BeginText(event);
            cells[duration_] = NumberText(DurationOf(event).Seconds());
        }
        if (old == nullptr || old->Label != event.Label) {
            cells[label_] = QuotedWhereNeeded(event.Label);
        }
        return JoinedCells(cells);
    }

private:
    std::size_t Place(const TableHead& old, TableHead::Column column, bool complete) {
        if (old.Has(column)) {
            return old.PlaceOf(column);
        }
        if (complete) {
            cells_.emplace_back(TableHead::kNames[column]);
        }
        return cells_.size() - 1;
    }

    std::vector<std::string> cells_;
    std::size_t oldWidth_;
    std::size_t onset_ = 0, duration_ = 0, label_ = 0;
};

bool IsAsBefore(const EventRecord& event, const OldTable& table) {
    const EventRecord* old = table.Event(event.Line);
    return old != nullptr && *old == event;
}

/// The rows of others behind each line, those of lines that go away behind the last one that stays.
std::vector<std::vector<std::size_t>> OthersBehind(const OldTable& table,
                                                   const std::vector<EventRecord>& events) {
    std::vector<bool> stays(table.Lines() + 1);
    for (const EventRecord& event : events) {
        if (table.Event(event.Line) != nullptr) {
            stays[event.Line] = true;
        }
    }
    std::vector<std::vector<std::size_t>> behind(table.Lines() + 1);
    std::size_t last = 1;
    for (std::size_t line = 2; line <= table.Lines(); ++line) {
        if (table.Event(line) == nullptr) {
            behind[last].push_back(line);
        } else if (stays[line]) {
            last = line;
        }
    }
    return behind;
}

} // namespace

std::string WhyNotInTable(const EventRecord& event) {
    const std::string& label = event.Label;
    if (Trim(label).empty()) {
        return "the event has no label (type one)";
    }
    if (std::any_of(label.begin(), label.end(), [](unsigned char c) { return c < ' ' || c == '\x7F'; })) {
        return "the label holds a tab, a line end or another control character (use blanks)";
    }
    if (IsMissing(label)) {
        return "the label " + Quoted(label) + " stands for none in the table (choose another)";
    }
    if (!IsUtf8(label) || label.starts_with(kByteOrderMark)) {
        return "the label " + Quoted(label) + " is no text in UTF-8 (type it again)";
    }
    if (Trim(label).size() != label.size()) {
        return "the label " + Quoted(label) + " begins or ends with a blank (remove it)";
    }
    const double duration = DurationOf(event).Seconds();
    if (event.Class == EventClass::State ? duration <= 0 : duration != 0) {
        return event.Class == EventClass::Spot ? "a spot event has no duration (make it a state event)"
               : duration < 0                  ? "the event ends before it begins (exchange begin and end)"
                              : "a state event without a duration (make it longer or a spot event)";
    }
    if (std::abs(event.Interval.GetBeginPtr()->Seconds()) > kMaxTableSeconds || duration > kMaxTableSeconds) {
        return "the event is more than 1e9 s long or away (choose a time near the recording)";
    }
    return {};
}

std::string WriteEventsTable(std::string_view table, const std::string& file,
                             std::span<const EventRecord> events) {
    const OldTable old(table.empty() ? kNewTable : table, file);
    std::vector<EventRecord> own;
    std::copy_if(events.begin(), events.end(), std::back_inserter(own),
                 [](const EventRecord& event) { return event.Source == EventSource::Table; });
    const NewHead head(old.Line(1), !std::all_of(own.begin(), own.end(), [&](const EventRecord& event) {
                           return IsAsBefore(event, old);
                       }));
    const auto behind = OthersBehind(old, own);

    std::string text(old.HasMark() ? kByteOrderMark : "");
    const auto add = [&](const std::string& line) { text.append(line).append(old.LineEnd()); };
    const auto addOthers = [&](std::size_t line) {
        for (const std::size_t other : behind[line]) {
            add(JoinedCells(CellsOf(old.Line(other))));
        }
    };
    add(head.Text());
    addOthers(1);
    for (const EventRecord& event : own) {
        const EventRecord* before = old.Event(event.Line);
        add(head.Row(event, before == nullptr ? std::string_view() : old.Line(event.Line), before));
        if (before != nullptr) {
            addOthers(event.Line);
        }
    }
    return text;
}

} // namespace orvanta::signal
