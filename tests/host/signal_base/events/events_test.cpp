// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/events.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
