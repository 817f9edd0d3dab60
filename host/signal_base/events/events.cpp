// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/events.h"

#include "host/signal_base/text.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace {

/// A rate of 0 would make durations uncountable: milliseconds then.
constexpr std::uint32_t kDefaultRate = 1000;

std::uint32_t CodeOf(EventClass eventClass) {
    return static_cast<std::uint32_t>(eventClass);
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

void EventsManager::Add(const EventRecord& event) {
    const auto place = std::upper_bound(impl_->events.begin(), impl_->events.end(), event,
                                        [](const EventRecord& a, const EventRecord& b) {
                                            return *a.Interval.GetBeginPtr() < *b.Interval.GetBeginPtr();
                                        });
    impl_->events.insert(place, event);
    ++impl_->generation;
}

std::uint64_t EventsManager::GetGeneration() const {
    return impl_->generation;
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
