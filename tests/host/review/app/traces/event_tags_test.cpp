// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/event_labels.h"
#include "host/review/app/traces/event_tags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::review;
using testing::ElementsAre;

EventRecord State(const char* label, double begin, double end) {
    return {label, EventClass::State, {XTime::FromSeconds(begin), XTime::FromSeconds(end)}};
}
EventRecord Spot(const char* label, double at) {
    return {label, EventClass::Spot, {XTime::FromSeconds(at), XTime::FromSeconds(at)}};
}

/// Ten seconds on 1000 pixels from 72 on; six pixels a character.
class EventTags : public testing::Test {
protected:
    std::vector<EventTag> Place(const std::vector<EventRecord>& events, double start = 0) {
        events_ = events;
        inputs_.clear();
        for (const EventRecord& event : events_) {
            inputs_.push_back({&event, inputs_.size(), false, false});
        }
        TraceWindow window;
        window.start = start;
        layout_ = LayOutTraces({0, 0, 1078, 600}, {12, 60, 4, window});
        return PlaceTags(layout_, inputs_,
                         [](const std::string& text) { return 6 * static_cast<int>(text.size()); });
    }

    std::vector<EventRecord> events_;
    std::vector<EventInput> inputs_;
    TraceLayout layout_;
};

TEST_F(EventTags, StandAtTheirEventsInRows) {
    const auto tags = Place({Spot("one", 1), Spot("two", 1.1), Spot("three", 1.2), Spot("four", 1.3)});
    ASSERT_EQ(tags.size(), 4);
    EXPECT_EQ(tags[0].box, (owl::TRect{172, 0, 198, 15}));
    EXPECT_EQ(tags[1].box, (owl::TRect{182, 16, 208, 31})); // no room beside the first
    EXPECT_TRUE(tags[2].box.IsEmpty());                     // nor beside both
    EXPECT_EQ(tags[3].box, (owl::TRect{202, 0, 234, 15}));
}

TEST_F(EventTags, KeepAStateOnThePage) {
    const auto tags = Place({State("long", -100, 100)});
    EXPECT_EQ(tags[0].begin, 72);
    EXPECT_EQ(tags[0].end, 1072);
    EXPECT_EQ(tags[0].box.left, 72);
}

TEST_F(EventTags, LeaveOutWhatIsNotOnThePage) {
    const auto tags = Place({State("before", 0, 10), Spot("before", 9.99), Spot("at the edge", 10),
                             State("after", 20, 30), Spot("after", 20)},
                            10);
    ASSERT_EQ(tags.size(), 1);
    EXPECT_EQ(tags[0].input->event->Label, "at the edge");
}

TEST_F(EventTags, AreHitAtTheirLabelLineOrBand) {
    const auto tags = Place({State("band", 1, 5), Spot("line", 3)});
    const auto at = [&](int x, int y) -> std::string {
        const EventTag* tag = TagAt(tags, layout_, {x, y});
        return tag == nullptr ? "" : tag->input->event->Label;
    };
    EXPECT_EQ(at(180, 5), "band");   // its label
    EXPECT_EQ(at(300, 200), "band"); // its band
    EXPECT_EQ(at(374, 200), "line"); // near the line
    EXPECT_EQ(at(380, 200), "band");
    EXPECT_EQ(at(600, 200), "");
}

TEST(OfferedLabels, AreTheRecentThenTheFrequentThenTheUsual) {
    const std::vector<EventRecord> events{State("b", 0, 1), State("a", 2, 3), State("a", 4, 5),
                                          Spot("spot", 1)};
    EXPECT_THAT(OfferedLabels({"mine", "a"}, events, EventClass::State),
                ElementsAre("mine", "a", "b", "bad", "artifact", "bad blink", "bad movement", "bad muscle",
                            "eyes open", "eyes closed", "seizure", "sleep"));
    EXPECT_THAT(OfferedLabels({}, {}, EventClass::Spot), ElementsAre("spike", "blink", "movement", "note"));
}

TEST(RecentLabels, HoldTheLastOneFirstAndNoneTwice) {
    EXPECT_THAT(WithRecent({"a", "b", "c"}, "b"), ElementsAre("b", "a", "c"));
    EXPECT_THAT(WithRecent({"1", "2", "3", "4", "5", "6"}, "7"), ElementsAre("7", "1", "2", "3", "4", "5"));
}

TEST(RecentLabels, AreKeptAsOneText) {
    EXPECT_THAT(SplitNames(JoinedNames({"eyes open", "a;b"})), ElementsAre("eyes open", "a;b"));
    EXPECT_TRUE(SplitNames("").empty());
    EXPECT_THAT(SplitNames("\t\ta\t"), ElementsAre("a"));
}

} // namespace
