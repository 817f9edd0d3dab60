// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/events.h"

#include "host/signal_base/text.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <tuple>

namespace {

/// A rate of 0 would make durations uncountable: milliseconds then.
constexpr std::uint32_t kDefaultRate = 1000;

std::uint32_t CodeOf(EventClass eventClass) {
    return static_cast<std::uint32_t>(eventClass);
}

bool BeginsBefore(const EventRecord& a, const EventRecord& b) {
    return *a.Interval.GetBeginPtr() < *b.Interval.GetBeginPtr();
}

void RequireChange(bool holds, const char* reason) {
    if (!holds) {
        throw std::invalid_argument(reason);
    }
}

/// The events after a change, or what is wrong with it as an exception.
std::vector<EventRecord> Changed(const std::vector<EventRecord>& events, std::span<const std::size_t> removed,
                                 std::span<const PlacedEvent> inserted) {
    std::vector<EventRecord> result;
    result.reserve(events.size() + inserted.size());
    auto gone = removed.begin();
    auto next = inserted.begin();
    const auto insert = [&] {
        for (; next != inserted.end() && next->Place == result.size(); ++next) {
            result.push_back(next->Event);
        }
    };
    for (std::size_t place = 0; place < events.size(); ++place) {
        if (gone != removed.end() && *gone == place) {
            RequireChange(events[place].Source == EventSource::Table,
                          "an event of the recording itself cannot be changed");
            ++gone;
            continue;
        }
        insert();
        result.push_back(events[place]);
    }
    insert();
    RequireChange(gone == removed.end(), "there is no such event to take out");
    RequireChange(next == inserted.end(), "there is no such place for an event");
    RequireChange(std::is_sorted(result.begin(), result.end(), BeginsBefore),
                  "the events would not be in time order");
    return result;
}

} // namespace

XEventType::XEventType(std::string label, EventClass eventClass, std::uint32_t code)
    : label_(std::move(label)), class_(eventClass), code_(code) {}

std::strong_ordering XEventType::operator<=>(const XEventType& other) const {
    return std::tie(label_, code_, class_) <=> std::tie(other.label_, other.code_, other.class_);
}

struct EventsManager::Impl {
    std::uint32_t rate = kDefaultRate;
    std::vector<EventRecord> events;
    std::uint64_t generation = 0;
    ManagedFlag changed;

    void Tell() {
        ++generation;
        changed.Set();
    }
};

EventsManager::EventsManager(std::uint32_t rate) : impl_(std::make_unique<Impl>()) {
    impl_->rate = rate == 0 ? kDefaultRate : rate;
}

EventsManager::~EventsManager() = default;

void EventsManager::GetEventsCountMap(EventsCountMap& counts, EventClass eventClass,
                                      bool /*includeUnused*/) const {
    counts.clear();
    for (const EventRecord& event : impl_->events) {
        if (event.Class == eventClass) {
            ++counts[XEventType(event.Label, event.Class, CodeOf(event.Class))];
        }
    }
}

void EventsManager::GetTimeListFromType(const XEventType& type, XTimeList& list) const {
    list.clear();
    for (const EventRecord& event : impl_->events) {
        if (event.Class == type.GetClass() && event.Label == type.GetLabel()) {
            list.push_back(event.Interval);
        }
    }
}

std::uint32_t EventsManager::GetEventsSR() const {
    return impl_->rate;
}

const std::vector<EventRecord>& EventsManager::GetEvents() const {
    return impl_->events;
}

std::size_t EventsManager::PlaceFor(const XTime& begin) const {
    const auto place = std::upper_bound(impl_->events.begin(), impl_->events.end(),
                                        EventRecord{{}, {}, {begin, begin}}, BeginsBefore);
    return static_cast<std::size_t>(place - impl_->events.begin());
}

std::size_t EventsManager::Add(const EventRecord& event) {
    const std::size_t place = PlaceFor(*event.Interval.GetBeginPtr());
    impl_->events.insert(impl_->events.begin() + static_cast<std::ptrdiff_t>(place), event);
    impl_->Tell();
    return place;
}

void EventsManager::Change(std::span<const std::size_t> removed, std::span<const PlacedEvent> inserted) {
    impl_->events = Changed(impl_->events, removed, inserted);
    impl_->Tell();
}

std::uint64_t EventsManager::GetGeneration() const {
    return impl_->generation;
}

ManagedFlag& EventsManager::GetChangedFlag() const {
    return impl_->changed;
}

std::vector<std::string> EventsManager::GetDefaultRejectLabels() const {
    std::set<std::string> labels;
    for (const EventRecord& event : impl_->events) {
        if (orvanta::signal::SameText(event.Label.substr(0, 3), "bad")) {
            labels.insert(event.Label);
        }
    }
    return {labels.begin(), labels.end()};
}
