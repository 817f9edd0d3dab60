// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/events/event_editor.h"

#include "host/platform/atomic_file.h"
#include "host/review/app/events/event_history.h"
#include "host/review/app/events/event_texts.h"
#include "host/signal_base/data_file.h"
#include "host/signal_base/events/annotation_events.h"
#include "host/signal_base/events_tsv/events_writer.h"
#include "host/signal_base/recording.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace orvanta::review {

namespace {

constexpr const char* kNotOwn = "this event is in the recording itself and cannot be changed";

bool IsUsers(const EventRecord& event) {
    return event.Source == EventSource::Table;
}

/// The bytes of a file; none when there is no such file.
std::optional<std::string> BytesOf(const std::string& path) {
    std::error_code unreadable;
    if (!std::filesystem::exists(path, unreadable) && !unreadable) {
        return std::nullopt;
    }
    constexpr std::uint64_t kAnySize = UINT64_MAX;
    return signal::DataFile(path, "an events table").ReadAll(kAnySize);
}

/// The change that takes the user's events out and puts others in, behind those of the recording itself at
/// the same times.
EventChange Exchange(const std::vector<EventRecord>& events, std::vector<EventRecord> others) {
    EventChange change;
    std::size_t place = 0;
    auto next = others.begin();
    const auto insertBefore = [&](const EventRecord* kept) {
        while (next != others.end() &&
               (kept == nullptr || *next->Interval.GetBeginPtr() < *kept->Interval.GetBeginPtr())) {
            change.inserted.push_back({place++, std::move(*next++)});
        }
    };
    for (std::size_t i = 0; i < events.size(); ++i) {
        if (IsUsers(events[i])) {
            change.removed.push_back({i, events[i]});
        } else {
            insertBefore(&events[i]);
            ++place;
        }
    }
    insertBefore(nullptr);
    return change;
}

} // namespace

struct EventEditor::Impl {
    explicit Impl(EEGFileInfoType& file)
        : recording(file), events(*file.GetEventsManager()), history(events),
          table(file.GetRecording()->Data().events_table), onDisk(table.text) {}

    const EventRecord& Own(std::size_t event) const;
    void Write(const std::string& path);

    EEGFileInfoType& recording;
    EventsManager& events;
    EventHistory history;
    /// As it was read: the lines of the events are its lines, however often it is written.
    signal::EventsTableFile table;
    std::optional<std::string> onDisk; ///< what was read or written last
};

const EventRecord& EventEditor::Impl::Own(std::size_t event) const {
    const std::vector<EventRecord>& all = events.GetEvents();
    if (event >= all.size()) {
        throw std::invalid_argument("there is no event " + std::to_string(event));
    }
    if (!IsUsers(all[event])) {
        throw std::invalid_argument(kNotOwn);
    }
    return all[event];
}

void EventEditor::Impl::Write(const std::string& path) {
    const signal::RecordingData& data = recording.GetRecording()->Data();
    for (const std::string& file : data.files) {
        std::error_code missing;
        if (file != data.events_table.path && std::filesystem::equivalent(file, path, missing)) {
            throw std::runtime_error(
                path + ": is a file of the recording and is not replaced (choose another name)");
        }
    }
    std::string text = signal::WriteEventsTable(table.text.value_or(""), path, events.GetEvents());
    platform::WriteFileAtomically(path, text);
    table.path = path;
    onDisk = std::move(text);
    history.MarkSaved();
}

EventEditor::EventEditor(EEGFileInfoType& recording) : impl_(std::make_unique<Impl>(recording)) {}

EventEditor::~EventEditor() = default;

const EEGFileInfoType& EventEditor::GetRecording() const {
    return impl_->recording;
}

const std::vector<EventRecord>& EventEditor::Events() const {
    return impl_->events.GetEvents();
}

bool EventEditor::IsOwn(std::size_t event) const {
    return event < Events().size() && IsUsers(Events()[event]);
}

std::string EventEditor::WhyNot(const EventRecord& event) const {
    std::string reason = signal::WhyNotInTable(event);
    if (!reason.empty()) {
        return reason;
    }
    const XTime end = XTime::FromSeconds(impl_->recording.GetRecording()->Time().Duration());
    const bool spot = event.Class == EventClass::Spot;
    const XTime first = *event.Interval.GetBeginPtr();
    const XTime last = *event.Interval.GetEndPtr();
    if (first > end || last < XTime() || (!spot && (first == end || last == XTime()))) {
        return "the event lies outside the recording, which lasts " + SecondsText(end).toStdString() +
               " s (choose a time inside)";
    }
    return {};
}

std::size_t EventEditor::Add(const EventRecord& event) {
    if (const std::string reason = WhyNot(event); !reason.empty()) {
        throw std::invalid_argument(reason);
    }
    EventRecord own = event;
    own.Source = EventSource::Table;
    own.Line = 0;
    const std::size_t place = impl_->events.PlaceFor(*own.Interval.GetBeginPtr());
    impl_->history.Make({AddText(own.Label), {}, {{place, own}}});
    return place;
}

std::size_t EventEditor::Replace(std::size_t event, const EventRecord& changed) {
    const EventRecord old = impl_->Own(event);
    if (const std::string reason = WhyNot(changed); !reason.empty()) {
        throw std::invalid_argument(reason);
    }
    if (old == changed) {
        return event;
    }
    EventRecord own = changed;
    own.Source = EventSource::Table;
    own.Line = old.Line;
    const XTime before = *old.Interval.GetBeginPtr();
    const XTime now = *own.Interval.GetBeginPtr();
    const std::size_t place =
        now == before ? event : impl_->events.PlaceFor(now) - static_cast<std::size_t>(before < now);
    impl_->history.Make({ChangeText(own.Label), {{event, old}}, {{place, own}}});
    return place;
}

void EventEditor::Remove(std::span<const std::size_t> events) {
    std::vector<std::size_t> places(events.begin(), events.end());
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    EventChange change;
    for (const std::size_t place : places) {
        change.removed.push_back({place, impl_->Own(place)});
    }
    if (!places.empty()) {
        change.text =
            places.size() == 1 ? DeleteText(change.removed.front().Event.Label) : DeleteText(places.size());
        impl_->history.Make(std::move(change));
    }
}

bool EventEditor::CanUndo() const {
    return impl_->history.Last() != nullptr;
}

bool EventEditor::CanRedo() const {
    return impl_->history.Next() != nullptr;
}

std::string EventEditor::UndoText() const {
    return CanUndo() ? impl_->history.Last()->text : std::string();
}

std::string EventEditor::RedoText() const {
    return CanRedo() ? impl_->history.Next()->text : std::string();
}

void EventEditor::Undo() {
    impl_->history.Undo();
}

void EventEditor::Redo() {
    impl_->history.Redo();
}

std::string EventEditor::GetFile() const {
    return impl_->table.path;
}

bool EventEditor::IsChanged() const {
    return !impl_->history.IsSaved();
}

void EventEditor::Save(Existing existing) {
    const std::string& path = impl_->table.path;
    if (path.empty()) {
        throw std::runtime_error("events: the recording has no file, and its events have no place beside it "
                                 "(save them elsewhere)");
    }
    const bool any = std::any_of(Events().begin(), Events().end(), IsUsers);
    if (existing == Existing::Keep) {
        const std::optional<std::string> now = BytesOf(path);
        if (now && now != impl_->onDisk) {
            throw EventsFileChanged(path + ": the file is not the one that was read or saved here (save all "
                                           "the same, load it and lose the changes here, or save elsewhere)");
        }
        if (!now && !any) {
            impl_->history.MarkSaved();
            return;
        }
    }
    impl_->Write(std::string(path));
}

void EventEditor::SaveAs(const std::string& path) {
    impl_->Write(path);
}

std::vector<std::string> EventEditor::Load(const std::string& path) {
    std::vector<signal::Annotation> annotations;
    std::vector<std::string> repairs;
    std::string text = signal::ReadEventsTsv(path, annotations, repairs);
    const EventChange change = Exchange(Events(), signal::EventsOf(annotations, repairs));
    std::vector<std::size_t> removed;
    for (const PlacedEvent& placed : change.removed) {
        removed.push_back(placed.Place);
    }
    impl_->table = {path, text};
    impl_->onDisk = std::move(text);
    impl_->history.Clear();
    impl_->events.Change(removed, change.inserted);
    return repairs;
}

ManagedFlag& EventEditor::GetChangedFlag() const {
    return impl_->events.GetChangedFlag();
}

} // namespace orvanta::review
