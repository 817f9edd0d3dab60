// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/events.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

EventRecord Spot(const char* label, double at) {
    return {label, EventClass::Spot, {XTime::FromSeconds(at), XTime::FromSeconds(at)}};
}

EventRecord State(const char* label, double begin, double end) {
    return {label, EventClass::State, {XTime::FromSeconds(begin), XTime::FromSeconds(end)}};
}

std::vector<std::pair<std::string, unsigned>> CountsOf(const EventsManager& events, EventClass eventClass) {
    EventsCountMap counts{{XEventType("old", EventClass::Spot), 9}};
    events.GetEventsCountMap(counts, eventClass, false);
    std::vector<std::pair<std::string, unsigned>> texts;
    for (const auto& [type, count] : counts) {
        EXPECT_EQ(type.GetClass(), eventClass);
        texts.emplace_back(type.GetLabel(), count);
    }
    return texts;
}

TEST(XEventType, IsOrderedByLabelBytesAndThenByCode) {
    EXPECT_LT(XEventType("B", EventClass::Spot), XEventType("a", EventClass::Spot));
    EXPECT_LT(XEventType("a", EventClass::State, 9), XEventType("b", EventClass::Spot, 1));
    EXPECT_LT(XEventType("a", EventClass::State, 1), XEventType("a", EventClass::Spot, 2));
    EXPECT_LT(XEventType("z", EventClass::Spot), XEventType("\u00E4", EventClass::Spot));
}

TEST(XEventType, OrderAgreesWithEquality) {
    const XEventType spot("a", EventClass::Spot);
    const XEventType state("a", EventClass::State);
    EXPECT_FALSE(spot == state);
    EXPECT_NE(spot <=> state, std::strong_ordering::equal);
    EXPECT_EQ(spot, XEventType("a", EventClass::Spot));
}

TEST(EventsManager, CountsTheEventsOfOneClass) {
    EventsManager events(100);
    events.Add(Spot("blink", 1));
    events.Add(State("eyes", 0, 5));
    events.Add(Spot("arrow", 2));
    events.Add(Spot("blink", 3));
    EXPECT_THAT(CountsOf(events, EventClass::Spot),
                ElementsAre(std::pair("arrow", 1U), std::pair("blink", 2U)));
    EXPECT_THAT(CountsOf(events, EventClass::State), ElementsAre(std::pair("eyes", 1U)));
}

TEST(EventsManager, ListsTheTimesOfATypeInOrder) {
    EventsManager events(100);
    events.Add(State("eyes", 4, 5));
    events.Add(Spot("eyes", 2));
    events.Add(State("eyes", -1, 3));
    XTimeList list;
    list.push_back(XTimeInterval());
    events.GetTimeListFromType(XEventType("eyes", EventClass::State), list);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list.begin()->Interval, State("", -1, 3).Interval);
    EXPECT_EQ(std::next(list.begin())->Interval, State("", 4, 5).Interval);
}

TEST(EventsManager, TypesOfTheCountMapFindTheirTimes) {
    EventsManager events(100);
    events.Add(Spot("blink", 1));
    EventsCountMap counts;
    events.GetEventsCountMap(counts, EventClass::Spot, false);
    XTimeList list;
    events.GetTimeListFromType(counts.begin()->first, list);
    EXPECT_EQ(list.size(), 1U);
}

TEST(EventsManager, AnUnknownTypeHasNoTimes) {
    const EventsManager events(100);
    XTimeList list;
    list.push_back(XTimeInterval());
    events.GetTimeListFromType(XEventType("none", EventClass::Spot), list);
    EXPECT_TRUE(list.empty());
}

TEST(EventsManager, EventsOfTheSameTimeKeepTheirOrder) {
    EventsManager events(100);
    events.Add(Spot("b", 1));
    events.Add(Spot("a", 1));
    events.Add(Spot("c", 0));
    EXPECT_THAT(events.GetEvents(), ElementsAre(Spot("c", 0), Spot("b", 1), Spot("a", 1)));
}

TEST(EventsManager, EveryChangeIsANewGeneration) {
    EventsManager events(100);
    const std::uint64_t before = events.GetGeneration();
    events.Add(Spot("b", 1));
    EXPECT_NE(events.GetGeneration(), before);
}

EventRecord Own(EventRecord event) {
    event.Source = EventSource::Table;
    return event;
}

/// Counts how often it is told.
struct Told : FlagListener {
    explicit Told(const EventsManager& events) : FlagListener("test", events.GetChangedFlag()) {}
    void PerformAction() override { ++times; }
    int times = 0;
};

TEST(EventsManager, SaysWhereItPutAnEvent) {
    EventsManager events(100);
    EXPECT_EQ(events.Add(Spot("b", 1)), 0U);
    EXPECT_EQ(events.Add(Spot("a", 1)), 1U);
    EXPECT_EQ(events.Add(Spot("c", 0)), 0U);
    EXPECT_EQ(events.PlaceFor(XTime::FromSeconds(1)), 3U);
}

TEST(EventsManager, ChangesSeveralEventsAtOnce) {
    EventsManager events(100);
    for (const char* label : {"a", "b", "c", "d"}) {
        events.Add(Own(Spot(label, 1)));
    }
    const Told told(events);
    const std::uint64_t before = events.GetGeneration();
    events.Change(std::vector<std::size_t>{1, 2},
                  std::vector<PlacedEvent>{{0, Spot("first", 0)}, {2, Spot("x", 1)}, {4, Spot("last", 2)}});
    EXPECT_THAT(events.GetEvents(),
                ElementsAre(Spot("first", 0), Spot("a", 1), Spot("x", 1), Spot("d", 1), Spot("last", 2)));
    EXPECT_EQ(told.times, 1);
    EXPECT_NE(events.GetGeneration(), before);
}

TEST(EventsManager, ExchangesAnEventAtItsPlace) {
    EventsManager events(100);
    events.Add(Own(Spot("a", 1)));
    events.Add(Own(Spot("b", 1)));
    events.Change(std::vector<std::size_t>{0}, std::vector<PlacedEvent>{{0, Spot("new", 1)}});
    EXPECT_THAT(events.GetEvents(), ElementsAre(Spot("new", 1), Spot("b", 1)));
}

TEST(EventsManager, RefusesChangesAsAWhole) {
    EventsManager events(100);
    events.Add(Own(Spot("a", 1)));
    events.Add(Spot("recorded", 2));
    const Told told(events);
    const std::uint64_t before = events.GetGeneration();
    const struct {
        const char* what;
        std::vector<std::size_t> removed;
        std::vector<PlacedEvent> inserted;
    } table[] = {
        {"of the recording", {0, 1}, {}},
        {"no such event", {0, 2}, {}},
        {"twice", {0, 0}, {}},
        {"no such place", {}, {{4, Spot("x", 9)}}},
        {"place twice", {}, {{0, Spot("x", 0)}, {0, Spot("y", 0)}}},
        {"not in time order", {}, {{0, Spot("x", 9)}}},
    };
    for (const auto& row : table) {
        EXPECT_THROW(events.Change(row.removed, row.inserted), std::invalid_argument) << row.what;
    }
    EXPECT_THAT(events.GetEvents(), ElementsAre(Spot("a", 1), Spot("recorded", 2)));
    EXPECT_EQ(events.GetGeneration(), before);
    EXPECT_EQ(told.times, 0);
}

TEST(EventsManager, EventsThatSayTheSameAreEqualWhereverTheyAreKept) {
    EXPECT_EQ(Own(Spot("a", 1)), Spot("a", 1));
    EXPECT_NE(Own(Spot("a", 1)), Spot("b", 1));
}

TEST(EventsManager, CountsInMillisecondsWithoutARate) {
    EXPECT_EQ(EventsManager(0).GetEventsSR(), 1000U);
    EXPECT_EQ(EventsManager(256).GetEventsSR(), 256U);
}

TEST(EventsManager, OffersLabelsThatStartWithBadForRejection) {
    EventsManager events(100);
    for (const char* label : {"bad blink", "BAD", "Bad_channel", "bad blink", "not bad", "ba", ""}) {
        events.Add(Spot(label, 0));
    }
    EXPECT_THAT(events.GetDefaultRejectLabels(), ElementsAre("BAD", "Bad_channel", "bad blink"));
    EXPECT_THAT(EventsManager(100).GetDefaultRejectLabels(), IsEmpty());
}

} // namespace
