// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/time_text_input.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta::review;

const TimeContext kNight{100, 36000, orvanta::signal::StartTime{2024, 3, 1, 22, 0, 0, 0}};
const TimeContext kUndated{100, 36000, {}};

TEST(TypedTime, IsAClockTimeOrCountsFromTheStartOrFromHere) {
    struct Case {
        const char* text;
        double seconds;
    };
    for (const Case& one : {
             Case{"22:00:30", 30},
             Case{" 22:01 ", 60},
             Case{"22:00:00.25", 0.25},
             Case{"01:00", 10800},
             Case{"90", 90},
             Case{"90 s", 90},
             Case{"1.5 min", 90},
             Case{"1,5 min", 90},
             Case{"2h", 7200},
             Case{"+90 s", 190},
             Case{"-10", 90},
             Case{"- 0:01:30", 10},
             Case{"+1 h", 3700},
             Case{"0", 0},
         }) {
        const TypedTime typed = ReadTypedTime(one.text, kNight);
        EXPECT_EQ(typed.error, "") << one.text;
        EXPECT_DOUBLE_EQ(typed.seconds, one.seconds) << one.text;
    }
}

TEST(TypedTime, CountsFromTheStartOfARecordingWithoutAClock) {
    EXPECT_EQ(ReadTypedTime("0:02:05", kUndated).seconds, 125);
    EXPECT_EQ(ReadTypedTime("2:05", kUndated).seconds, 7500);
}

TEST(TypedTime, SaysWhatIsNoTime) {
    for (const char* text :
         {"", " ", "x", "12:61", "1:2:3:4", "1.5:00", "90 x", "--5", "1e999", "nan", "12:", "s"}) {
        EXPECT_NE(ReadTypedTime(text, kNight).error.find(" is no time (type "), std::string::npos) << text;
    }
}

TEST(TypedTime, SaysWhichTimesTheRecordingHas) {
    const char* expected =
        "the recording has no such time (type one from 22:00:00 to 08:00:00, or 0 s to 10:00:00)";
    EXPECT_EQ(ReadTypedTime("36001", kNight).error, expected);
    EXPECT_EQ(ReadTypedTime("-101", kNight).error, expected);
    EXPECT_EQ(ReadTypedTime("12:00:00", kNight).error, expected);
    EXPECT_EQ(ReadTypedTime("25:00:00", kNight).error,
              "a day has 24 hours (type a time from 00:00:00 to 23:59:59)");
}

} // namespace
