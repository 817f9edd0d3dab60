// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/events_tsv/events_table.h"

#include "host/signal_base/recording_error.h"
#include "tests/support/event_rows.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace orvanta::signal {
namespace {

using test::kSpot;
using Events = test::EventRows;

struct Parsed {
    Events events;
    std::vector<std::string> repairs;
};

Parsed Parse(const std::string& text) {
    std::vector<Annotation> annotations;
    Parsed parsed;
    ParseEventsTable(text, "folder/sub-01_events.tsv", annotations, parsed.repairs);
    parsed.events = test::RowsOf(annotations);
    return parsed;
}

std::string ReasonOf(const std::string& text) {
    try {
        Parse(text);
    } catch (const RecordingError& error) {
        return error.Reason();
    }
    return "accepted";
}

TEST(ParseEventsTable, ReadsOnsetDurationAndType) {
    const Parsed parsed = Parse("onset\tduration\ttrial_type\n0.5\t2\teyes open\n10\t0\tblink\n");
    EXPECT_EQ(parsed.events, (Events{{0.5, 2, "eyes open"}, {10, kSpot, "blink"}}));
    EXPECT_TRUE(parsed.repairs.empty());
}

TEST(ParseEventsTable, RepairsDecimalCommas) {
    const Parsed parsed = Parse("onset\tduration\n0,5\t2\n1.5\t0,25\n");
    EXPECT_EQ(parsed.events, (Events{{0.5, 2, "event"}, {1.5, 0.25, "event"}}));
    EXPECT_EQ(parsed.repairs,
              (std::vector<std::string>{"sub-01_events.tsv: line 2: decimal comma read as a point",
                                        "sub-01_events.tsv: line 3: decimal comma read as a point"}));
}

TEST(ParseEventsTable, TakesColumnsInAnyOrderAndLeavesOutOthers) {
    const Parsed parsed = Parse("sample\tTrial_Type\tduration\tresponse\tOnset\n1\tgo\t0.1\tx\t2.5\n");
    EXPECT_EQ(parsed.events, (Events{{2.5, 0.1, "go"}}));
}

TEST(ParseEventsTable, TakesTheValueWhereThereIsNoType) {
    EXPECT_EQ(Parse("onset\tvalue\n1\t7\n").events, (Events{{1, kSpot, "7"}}));
    EXPECT_EQ(Parse("onset\ttrial_type\tvalue\n1\tn/a\t7\n2\tgo\t8\n3\tn/a\tn/a\n").events,
              (Events{{1, kSpot, "7"}, {2, kSpot, "go"}, {3, kSpot, "event"}}));
}

TEST(ParseEventsTable, NamesEventsOfATableWithoutText) {
    EXPECT_EQ(Parse("onset\tduration\n1\tn/a\n2\t\n3\n").events,
              (Events{{1, kSpot, "event"}, {2, kSpot, "event"}, {3, kSpot, "event"}}));
}

TEST(ParseEventsTable, ReadsCrLfByteOrderMarkAndLatin1) {
    EXPECT_EQ(Parse("\xEF\xBB\xBFonset\tvalue\r\n1\t\xE4\r\n\r\n2\t\xC3\xB6").events,
              (Events{{1, kSpot, "ä"}, {2, kSpot, "ö"}}));
}

TEST(ParseEventsTable, LeavesByteOrderMarksOutOfTexts) {
    EXPECT_EQ(Parse("onset\tvalue\n1\t\xEF\xBB\xBF a\n2\t\xEF\xBB\xBF\xEF\xBB\xBF\"b\xE4\"\n").events,
              (Events{{1, kSpot, "a"}, {2, kSpot, "bä"}}));
}

TEST(ParseEventsTable, NamesAnEventWhoseTextIsOnlyAByteOrderMark) {
    EXPECT_EQ(Parse("onset\tvalue\n1\t\xEF\xBB\xBF\n").events, (Events{{1, kSpot, "event"}}));
}

TEST(ParseEventsTable, ReadsLabelsInQuotationMarks) {
    const std::pair<std::string, std::string> labels[] = {{"\"eyes open\"", "eyes open"},
                                                          {"\"say \"\"go\"\"\"", "say \"go\""},
                                                          {"\"\"\"odd\"", "\"odd"},
                                                          {"\"\"\"\"", "\""},
                                                          {"\"odd", "\"odd"},
                                                          {"\"", "\""},
                                                          {"\"a\" or \"b\"", "\"a\" or \"b\""},
                                                          {"5\" screen", "5\" screen"},
                                                          {"\"\"", "event"},
                                                          {"\"n/a\"", "event"}};
    for (const auto& [cell, label] : labels) {
        EXPECT_EQ(Parse("onset\ttrial_type\n1\t" + cell + '\n').events, (Events{{1, kSpot, label}})) << cell;
    }
}

TEST(ParseEventsTable, KeepsNegativeOnsets) {
    EXPECT_EQ(Parse("onset\n-0.25\n").events, (Events{{-0.25, kSpot, "event"}}));
}

TEST(ParseEventsTable, LeavesOutRowsWithoutATime) {
    const Parsed parsed = Parse("onset\tvalue\nn/a\ta\nsoon\tb\n1\tc\n\td\n1e300\te\n");
    EXPECT_EQ(parsed.events, (Events{{1, kSpot, "c"}}));
    EXPECT_EQ(parsed.repairs, (std::vector<std::string>{
                                  "sub-01_events.tsv: line 2: onset \"n/a\" is no time, row left out",
                                  "sub-01_events.tsv: line 3: onset \"soon\" is no time, row left out",
                                  "sub-01_events.tsv: line 5: onset \"\" is no time, row left out",
                                  "sub-01_events.tsv: line 6: onset \"1e300\" is no time, row left out"}));
}

TEST(ParseEventsTable, TakesABadDurationAsASpotEvent) {
    const Parsed parsed = Parse("onset\tduration\n1\tlong\n2\t-3\n");
    EXPECT_EQ(parsed.events, (Events{{1, kSpot, "event"}, {2, kSpot, "event"}}));
    EXPECT_EQ(parsed.repairs,
              (std::vector<std::string>{
                  "sub-01_events.tsv: line 2: duration \"long\" is none, taken as a spot event",
                  "sub-01_events.tsv: line 3: duration \"-3\" is none, taken as a spot event"}));
}

TEST(ParseEventsTable, ListsTwentyBadRowsAndCountsTheRest) {
    std::string text = "onset\n";
    for (int i = 0; i < 100; ++i) {
        text += "bad\n";
    }
    const Parsed parsed = Parse(text);
    ASSERT_EQ(parsed.repairs.size(), 21u);
    EXPECT_EQ(parsed.repairs.back(), "sub-01_events.tsv: and 80 more");
}

TEST(ParseEventsTable, RefusesATableWithoutOnsets) {
    EXPECT_EQ(ReasonOf(""), "line 1: no column named \"onset\"");
    EXPECT_EQ(ReasonOf("duration\ttrial_type\n1\ta\n"), "line 1: no column named \"onset\"");
    EXPECT_EQ(ReasonOf("onset,duration\n1,2\n"), "line 1: no column named \"onset\"");
}

TEST(ReadEventsTsv, AppendsTheEventsOfAFile) {
    test::TempFolder folder;
    std::vector<Annotation> annotations(1);
    std::vector<std::string> repairs;
    ReadEventsTsv(folder.Write("a_events.tsv", "onset\tvalue\n1\t7\n"), annotations, repairs);
    ASSERT_EQ(annotations.size(), 2u);
    EXPECT_EQ(annotations[1].text, "7");
}

TEST(ReadEventsTsv, RefusesAMissingFile) {
    test::TempFolder folder;
    std::vector<Annotation> annotations;
    std::vector<std::string> repairs;
    EXPECT_THROW(ReadEventsTsv(folder.Path("none.tsv"), annotations, repairs), RecordingError);
}

} // namespace
} // namespace orvanta::signal
