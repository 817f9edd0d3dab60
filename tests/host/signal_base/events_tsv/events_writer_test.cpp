// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/events_tsv/events_writer.h"

#include "host/signal_base/events/annotation_events.h"
#include "host/signal_base/events_tsv/events_table.h"
#include "host/signal_base/recording_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace orvanta::signal {
namespace {

using testing::ElementsAreArray;
using testing::HasSubstr;
using Events = std::vector<EventRecord>;

XTimeInterval At(std::int64_t begin_ns, std::int64_t end_ns) {
    return {XTime::FromNanoseconds(begin_ns), XTime::FromNanoseconds(end_ns)};
}

EventRecord Spot(const std::string& label, double at, std::size_t line = 0) {
    const XTime time = XTime::FromSeconds(at);
    return {label, EventClass::Spot, {time, time}, EventSource::Table, line};
}

EventRecord State(const std::string& label, double begin, double end, std::size_t line = 0) {
    const XTimeInterval stretch(XTime::FromSeconds(begin), XTime::FromSeconds(end));
    return {label, EventClass::State, stretch, EventSource::Table, line};
}

Events Read(const std::string& table) {
    std::vector<Annotation> annotations;
    std::vector<std::string> repairs;
    ParseEventsTable(table, "t.tsv", annotations, repairs);
    return EventsOf(annotations, repairs);
}

std::string Write(const std::string& table, const Events& events) {
    return WriteEventsTable(table, "t.tsv", events);
}

TEST(WriteEventsTable, MakesATable) {
    EXPECT_EQ(Write("", {State("eyes open", 0.5, 2.5), Spot("blink", 10)}),
              "onset\tduration\ttrial_type\n0.5\t2\teyes open\n10\t0\tblink\n");
}

TEST(WriteEventsTable, LeavesOutWhatTheRecordingHolds) {
    EventRecord recorded = Spot("tone", 1);
    recorded.Source = EventSource::Recording;
    EXPECT_EQ(Write("", {recorded, Spot("blink", 10)}), "onset\tduration\ttrial_type\n10\t0\tblink\n");
}

TEST(WriteEventsTable, WritesNumbersWithoutExponents) {
    EXPECT_EQ(Write("", {Spot("a", -1e-9), Spot("b", 0.1), Spot("c", 100000), Spot("d", 86400.000000001)}),
              "onset\tduration\ttrial_type\n-0.000000001\t0\ta\n0.1\t0\tb\n100000\t0\tc\n"
              "86400.000000001\t0\td\n");
}

TEST(WriteEventsTable, PutsLabelsThatBeginWithAQuotationMarkInMarks) {
    const Events events{Spot(R"("go")", 1), Spot(R"("odd)", 2), Spot(R"(5" screen)", 3)};
    const std::string table = Write("", events);
    EXPECT_EQ(table, "onset\tduration\ttrial_type\n"
                     "1\t0\t\"\"\"go\"\"\"\n2\t0\t\"\"\"odd\"\n3\t0\t5\" screen\n");
    const Events again = Read(table);
    ASSERT_EQ(again.size(), 3U);
    EXPECT_EQ(again[0].Label, R"("go")");
    EXPECT_EQ(again[1].Label, R"("odd)");
    EXPECT_EQ(again[2].Label, R"(5" screen)");
}

TEST(WriteEventsTable, KeepsRowsOfUnchangedEventsAsTheyAre) {
    const std::string table = "onset\ttrial_type\tduration\tresponse\n1,50\tgo \t 2.0\tleft\n3\tn/a\tn/a\t\n";
    EXPECT_EQ(Write(table, Read(table)), table);
}

TEST(WriteEventsTable, ChangesOnlyTheCellsThatTellTheChange) {
    const std::string table =
        "onset\tstim\tduration\ttrial_type\n1.50\ta.png\t2.0\tgo\n4.0\tb.png\t0\tstop\n";
    EXPECT_EQ(Write(table, {State("gone", 1.5, 3.5, 2), Spot("stop", 5, 3)}),
              "onset\tstim\tduration\ttrial_type\n1.50\ta.png\t2.0\tgone\n5\tb.png\t0\tstop\n");
}

TEST(WriteEventsTable, GivesNewEventsNoForeignValues) {
    const std::string table = "onset\tduration\ttrial_type\tresponse\n1\t2\tgo\tleft\n";
    EXPECT_EQ(Write(table, {State("go", 1, 3, 2), Spot("Artifact", 7)}), table + "7\t0\tArtifact\tn/a\n");
}

TEST(WriteEventsTable, LeavesOutDeletedEvents) {
    const std::string table = "onset\tduration\ttrial_type\n1\t2\tgo\n5\t0\tstop\n";
    EXPECT_EQ(Write(table, {Spot("stop", 5, 3)}), "onset\tduration\ttrial_type\n5\t0\tstop\n");
    EXPECT_EQ(Write(table, {}), "onset\tduration\ttrial_type\n");
}

TEST(WriteEventsTable, BringsADeletedEventBackWithItsForeignValues) {
    const std::string table = "onset\tduration\ttrial_type\tresponse\n1\t2\tgo\tleft\n";
    const Events events = Read(table);
    ASSERT_EQ(Write(table, {}), "onset\tduration\ttrial_type\tresponse\n");
    EXPECT_EQ(Write(table, events), table);
}

TEST(WriteEventsTable, KeepsRowsThatAreNoEventsBehindTheRowTheyFollowed) {
    const std::string table =
        "onset\tduration\ttrial_type\n# made by hand\n1\t0\ta\nsoon\t\tx\n2\t0\tb\n\nlast\n";
    EXPECT_EQ(Write(table, Read(table)), table);
    EXPECT_EQ(Write(table, {Spot("b", 0.5, 5), Spot("a", 1, 3)}),
              "onset\tduration\ttrial_type\n# made by hand\n0.5\t0\tb\n\nlast\n1\t0\ta\nsoon\t\tx\n");
    EXPECT_EQ(Write(table, {Spot("b", 2, 5)}),
              "onset\tduration\ttrial_type\n# made by hand\nsoon\t\tx\n2\t0\tb\n\nlast\n");
}

TEST(WriteEventsTable, AddsTheColumnsThatAreMissing) {
    EXPECT_EQ(Write("onset\tsample\n1\t256\n", {Spot("event", 1, 2), State("go", 2, 3)}),
              "onset\tsample\tduration\ttrial_type\n1\t256\tn/a\tn/a\n2\tn/a\t1\tgo\n");
    EXPECT_EQ(Write("onset\tvalue\n1\t7\n", {Spot("8", 1, 2)}), "onset\tvalue\tduration\n1\t8\tn/a\n");
    EXPECT_EQ(Write("onset\n1\n", {Spot("event", 1, 2)}), "onset\n1\n");
}

TEST(WriteEventsTable, AddsColumnsBeforeWhatRowsHaveMoreThanTheHead) {
    EXPECT_EQ(Write("onset\tvalue\n1\t7\t5\tx\n", {Spot("7", 1, 2), Spot("8", 2)}),
              "onset\tvalue\tduration\n1\t7\tn/a\t5\tx\n2\t8\t0\n");
}

TEST(WriteEventsTable, KeepsLineEndsAndByteOrderMark) {
    EXPECT_EQ(Write("\xEF\xBB\xBFonset\tvalue\tduration\r\n1\t7\t0", {Spot("7", 1, 2), Spot("8", 2)}),
              "\xEF\xBB\xBFonset\tvalue\tduration\r\n1\t7\t0\r\n2\t8\t0\r\n");
}

TEST(WriteEventsTable, MakesOtherEncodingsUtf8) {
    const std::string table = "onset\tvalue\tnote\n1\t\xE4\t\xF6\nx\t\xFC\n";
    EXPECT_EQ(Write(table, Read(table)), "onset\tvalue\tnote\n1\tä\tö\nx\tü\n");
}

TEST(WriteEventsTable, KeepsTextsBehindByteOrderMarksAsTheyWereRead) {
    const std::string table = "onset\tvalue\n1\t\xEF\xBB\xBF \"a\xE4\"\n";
    const Events events = Read(table);
    const std::string written = Write(table, events);
    EXPECT_EQ(written, "onset\tvalue\n1\t\"aä\"\n");
    EXPECT_EQ(Read(written), events);
}

TEST(WriteEventsTable, RefusesATextThatIsNoTable) {
    EXPECT_THROW(Write("time\tlabel\n1\ta\n", {}), RecordingError);
}

TEST(WriteEventsTable, IsReadAgainToTheNanosecond) {
    std::mt19937_64 random(8);
    std::uniform_int_distribution<std::int64_t> begin(0, 24LL * 3600 * 1'000'000'000);
    std::uniform_int_distribution<std::int64_t> duration(1, 100'000'000'000);
    Events events;
    for (int i = 0; i < 2000; ++i) {
        const std::int64_t from = begin(random);
        events.push_back({"e" + std::to_string(i), EventClass::State, At(from, from + duration(random)),
                          EventSource::Table});
    }
    std::sort(events.begin(), events.end(), [](const EventRecord& a, const EventRecord& b) {
        return *a.Interval.GetBeginPtr() < *b.Interval.GetBeginPtr();
    });
    EXPECT_THAT(Read(Write("", events)), ElementsAreArray(events));
}

TEST(WriteEventsTable, KeepsTheOrderOfEventsAtTheSameTime) {
    const Events events = {Spot("c", 1), Spot("a", 1), Spot("b", 1)};
    EXPECT_THAT(Read(Write("", events)), ElementsAreArray(events));
}

TEST(WhyNotInTable, AcceptsWhatIsReadAgainAsItIs) {
    for (const char* label : {"Artifact", "eyes open", "\"quoted\"", "ä→", "bad, 2", "NA"}) {
        EXPECT_EQ(WhyNotInTable(Spot(label, 1)), "") << label;
        EXPECT_EQ(Read(Write("", {Spot(label, 1)})), Events{Spot(label, 1)});
    }
    EXPECT_EQ(WhyNotInTable(State("a", -1, 2)), "");
}

TEST(WhyNotInTable, NamesWhatTheTableCannotHold) {
    const struct {
        EventRecord event;
        const char* reason;
    } table[] = {
        {Spot("", 1), "the event has no label (type one)"},
        {Spot(" ", 1), "the event has no label (type one)"},
        {Spot("a\tb", 1), "the label holds a tab, a line end or another control character (use blanks)"},
        {Spot("a\nb", 1), "the label holds a tab, a line end or another control character (use blanks)"},
        {Spot("N/A", 1), "the label \"N/A\" stands for none in the table (choose another)"},
        {Spot("a ", 1), "the label \"a \" begins or ends with a blank (remove it)"},
        {Spot("\xE4", 1), "the label \"ä\" is no text in UTF-8 (type it again)"},
        {State("a", 2, 1), "the event ends before it begins (exchange begin and end)"},
        {State("a", 2, 2), "a state event without a duration (make it longer or a spot event)"},
        {{"a", EventClass::Spot, At(1, 2)}, "a spot event has no duration (make it a state event)"},
        {Spot("a", 2e9), "the event is more than 1e9 s long or away (choose a time near the recording)"},
        {State("a", 0, 2e9), "the event is more than 1e9 s long or away (choose a time near the recording)"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(WhyNotInTable(row.event), row.reason);
    }
}

} // namespace
} // namespace orvanta::signal
