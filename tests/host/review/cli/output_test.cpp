// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/output.h"

#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

namespace orvanta::cli {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(FixedText, KeepsTheDecimals) {
    EXPECT_EQ(FixedText(1.5, 3), "1.500");
}
TEST(FixedText, TakesTheLargestDouble) {
    EXPECT_EQ(FixedText(1.7976931348623157e308, 0).size(), 309u);
}
TEST(FixedText, NaNIsNotANumberText) {
    EXPECT_EQ(FixedText(kNaN, 2), "n/a");
}

TEST(FixedText, WhatRoundsToZeroHasNoSign) {
    EXPECT_EQ(FixedText(-0.004, 2), "0.00");
}
TEST(FixedText, KeepsTheSignOfWhatDoesNot) {
    EXPECT_EQ(FixedText(-0.006, 2), "-0.01");
}

TEST(CompactText, KeepsEightColumns) {
    const std::vector<std::pair<double, std::string>> texts = {
        {0, "0.0000"},       {0.5, "0.5000"},       {12.345, "12.35"},   {123.45, "123.5"}, {99999, "99999"},
        {123456, "1.2e+05"}, {-4.6e10, "-4.6e+10"}, {0.0004, "4.0e-04"}, {kNaN, "n/a"}};
    for (const auto& [value, text] : texts) {
        EXPECT_EQ(CompactText(value), text);
    }
}

TEST(CheckWritable, LeavesNoTrace) {
    const test::TempFolder folder;
    CheckWritable(folder.Path("new.png"));
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path("")));
    folder.Write("old.png", "old");
    CheckWritable(folder.Path("old.png"));
    EXPECT_EQ(folder.Read("old.png"), "old");
}

TEST(CheckWritable, SaysWhyAFileCannotBeWritten) {
    const test::TempFolder folder;
    try {
        CheckWritable(folder.Path("none/a.png"));
        FAIL() << "not refused";
    } catch (const std::runtime_error& failure) {
        EXPECT_EQ(failure.what(), folder.Path("none/a.png") +
                                      ": cannot be written: No such file or directory "
                                      "(choose a folder that exists)");
    }
    EXPECT_THROW(CheckWritable(folder.Path("")), std::runtime_error);
}

TEST(CsvLine, QuotesWhatNeedsIt) {
    EXPECT_EQ(CsvLine({"a", "b,c", "say \"d\"", ""}), "a,\"b,c\",\"say \"\"d\"\"\",\n");
}

TEST(DurationText, ShowsHoursMinutesSeconds) {
    EXPECT_EQ(DurationText(3725.4), "1:02:05");
}
TEST(DurationText, GoesBeyondADay) {
    EXPECT_EQ(DurationText(100 * 3600), "100:00:00");
}

TEST(Pad, FillsOnTheRight) {
    EXPECT_EQ(Pad("ab", 4), "ab  ");
}
TEST(Counted, HasAnSUnlessThereIsOne) {
    EXPECT_EQ(Counted(0, "plot"), "0 plots");
    EXPECT_EQ(Counted(1, "EEG sensor"), "1 EEG sensor");
    EXPECT_EQ(Counted(19, "EEG sensor"), "19 EEG sensors");
}

TEST(Pad, NegativeWidthFillsOnTheLeft) {
    EXPECT_EQ(Pad("ab", -4), "  ab");
}
TEST(Pad, CountsCharactersNotBytes) {
    EXPECT_EQ(Pad("µV²", 4), "µV² ");
}
TEST(Pad, LeavesLongTextWhole) {
    EXPECT_EQ(Pad("abcdef", 3), "abcdef");
}

} // namespace
} // namespace orvanta::cli
