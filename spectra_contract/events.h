// SPDX-License-Identifier: GPL-3.0-or-later
// Events of a recording and the flags that tell when something shared has changed.
#pragma once

#include "spectra_contract/time.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

/// Class of an event type.
enum class EventClass : int {
    Spot = 1,  ///< a point in time
    State = 2, ///< a stretch of time
};

/// A kind of event: its label and class. Ordered by label, bytes compared, then by type code.
class ORVANTA_API XEventType {
public:
    XEventType() = default;
    XEventType(std::string label, EventClass eventClass, std::uint32_t code = 0);

    const std::string& GetLabel() const { return label_; }
    EventClass GetClass() const { return class_; }
    std::uint32_t GetCode() const { return code_; }

    std::strong_ordering operator<=>(const XEventType& other) const;
    bool operator==(const XEventType& other) const = default;

private:
    std::string label_;
    EventClass class_ = EventClass::Spot;
    std::uint32_t code_ = 0;
};

using EventsCountMap = std::map<XEventType, unsigned>;

/// Where an event is kept.
enum class EventSource : int {
    Recording = 0, ///< in the recording itself; never changed
    Table = 1,     ///< in the table beside it; the user's
};

/// One event. A spot event's interval is empty (end equal to begin).
struct EventRecord {
    std::string Label;
    EventClass Class = EventClass::Spot;
    XTimeInterval Interval;
    EventSource Source = EventSource::Recording;
    /// Line of the table as it was read, from 2 on; 0 for an event that was not read from one.
    std::size_t Line = 0;

    /// Equal are events that say the same, wherever they are kept.
    bool operator==(const EventRecord& other) const {
        return Label == other.Label && Class == other.Class && Interval == other.Interval;
    }
};

/// An event and its place among the events of its recording.
struct PlacedEvent {
    std::size_t Place = 0;
    EventRecord Event;
};

class ManagedFlag;

/// The events of one recording, in time order.
class ORVANTA_API EventsManager {
public:
    /// \param rate rate in Hz in which interval lengths are counted; 0 stands for 1000
    explicit EventsManager(std::uint32_t rate = 0);
    ~EventsManager();
    EventsManager(const EventsManager&) = delete;
    EventsManager& operator=(const EventsManager&) = delete;

    /// Fills \p counts with the number of events of every type of the class; the earlier content goes.
    /// \param includeUnused also list types that have no event; types are known by their events alone here,
    /// so that there are none
    void GetEventsCountMap(EventsCountMap& counts, EventClass eventClass, bool includeUnused) const;
    /// Fills \p list with the intervals of the type's events in time order; the earlier content goes.
    void GetTimeListFromType(const XEventType& type, XTimeList& list) const;
    /// Rate in Hz at which durations are counted.
    std::uint32_t GetEventsSR() const;

    const std::vector<EventRecord>& GetEvents() const;
    /// Inserts in time order, after events of the same time. \return its place
    std::size_t Add(const EventRecord& event);
    /// The place that an event which begins at \p begin would get.
    std::size_t PlaceFor(const XTime& begin) const;
    /// Takes out the events at the places \p removed, counted before the change, and puts in \p inserted,
    /// each at its place after the change: one change, told once. Places ascend. \throws
    /// std::invalid_argument, and changes nothing, for places that are none or do not ascend, for an event of
    /// the recording itself, and when the events would not be in time order
    void Change(std::span<const std::size_t> removed, std::span<const PlacedEvent> inserted);
    /// Changes with every change of the events.
    std::uint64_t GetGeneration() const;
    /// Set after every change.
    ManagedFlag& GetChangedFlag() const;
    /// Labels offered as rejected by default: those that start with "bad", case ignored.
    std::vector<std::string> GetDefaultRejectLabels() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

/// Is told when a flag is set; registered under a name for as long as it lives.
class ORVANTA_API FlagListener {
public:
    FlagListener(const char* name, ManagedFlag* flag);
    FlagListener(const char* name, ManagedFlag& flag);
    FlagListener(const FlagListener& other);
    FlagListener& operator=(const FlagListener& other);
    virtual ~FlagListener();

    virtual void PerformAction() {}
    const std::string& GetListenerName() const { return name_; }

private:
    friend class ManagedFlag;
    std::string name_;
    ManagedFlag* flag_ = nullptr;
};

/// A shared flag. Listeners are called in the order of their registration, on the caller's thread.
class ORVANTA_API ManagedFlag {
public:
    ManagedFlag() = default;
    ~ManagedFlag();
    ManagedFlag(const ManagedFlag&) = delete;
    ManagedFlag& operator=(const ManagedFlag&) = delete;

    /// Calls every listener's PerformAction; a listener may unregister itself or others meanwhile.
    void Set();

private:
    friend class FlagListener;
    void Attach(FlagListener* listener);
    void Detach(FlagListener* listener);
    std::vector<FlagListener*> listeners_;
};
