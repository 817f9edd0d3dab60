// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/row_averages.h"

#include "tests/spectrum_view/painting/over_time_input.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

std::vector<SpectraOverTime::Span> Seconds(const std::vector<double>& begins) {
    return test::SecondsOfOnes(begins, 1).rows;
}

TEST(RowGroups, StandWhereTheyBeginWhenThereIsRoom) {
    EXPECT_EQ(GroupRows(Seconds({0, 1, 3}), 0, 4, 50, 4),
              (std::vector<RowGroup>{{{0, 1}, 0}, {{1, 2}, 12}, {{2, 3}, 37}}));
}

TEST(RowGroups, JoinRowsOfAStretchWhenTheyLieTooClose) {
    EXPECT_EQ(GroupRows(Seconds({0, 1, 2, 3, 4, 5, 6, 7}), 0, 8, 16, 4),
              (std::vector<RowGroup>{{{0, 2}, 0}, {{2, 4}, 4}, {{4, 6}, 8}, {{6, 8}, 12}}));
}

TEST(RowGroups, LeaveGapsFree) {
    EXPECT_EQ(GroupRows(Seconds({0, 1, 6, 7}), 0, 8, 16, 4),
              (std::vector<RowGroup>{{{0, 2}, 0}, {{2, 4}, 12}}));
}

TEST(RowGroups, AreNeverMoreThanThereArePixelsFor) {
    std::vector<double> begins;
    for (int i = 0; i < 18000; ++i) {
        begins.push_back(i * 2.0);
    }
    const auto groups = GroupRows(Seconds(begins), 0, 36000, 163, 2);
    EXPECT_EQ(groups.size(), 82u);
    EXPECT_EQ(groups.front().rows.first, 0u);
    EXPECT_EQ(groups.back().rows.end, 18000u);
    for (std::size_t i = 1; i < groups.size(); ++i) {
        EXPECT_EQ(groups[i].rows.first, groups[i - 1].rows.end);
        EXPECT_EQ(groups[i].offset - groups[i - 1].offset, 2);
    }
}

TEST(RowGroups, AreNoneWithoutTimeOrRoom) {
    EXPECT_TRUE(GroupRows(Seconds({0}), 0, 0, 50, 4).empty());
    EXPECT_TRUE(GroupRows(Seconds({0}), 0, 1, 0, 4).empty());
}

TEST(ColumnRows, OneRowCoversSeveralColumnsAndAGapNone) {
    const RowRange none;
    EXPECT_EQ(RowsOfColumns(Seconds({0, 2}), 0, 3, 6),
              (std::vector<RowRange>{{0, 1}, {0, 1}, none, none, {1, 2}, {1, 2}}));
}

TEST(ColumnRows, AColumnTakesAllRowsWhoseMiddleLiesInIt) {
    EXPECT_EQ(RowsOfColumns(Seconds({0, 1, 2, 3, 4, 5}), 0, 6, 2), (std::vector<RowRange>{{0, 3}, {3, 6}}));
}

TEST(AveragedRows, LeaveOutWhatIsNoNumber) {
    const SpectraOverTime spectra{3, {1, 2, kNan, 3, kNan, kNan}, {{0, 1}, {1, 2}}};
    std::array<float, 4> means{};
    AverageRows(spectra, {0, 2}, 0, means);
    EXPECT_EQ(means[0], 2.0F);
    EXPECT_EQ(means[1], 2.0F);
    EXPECT_TRUE(std::isnan(means[2]));
    EXPECT_TRUE(std::isnan(means[3])); // beyond the last bin
}

TEST(AveragedRows, StartAtTheFirstBin) {
    const SpectraOverTime spectra{3, {1, 2, 3, 5, 6, 9}, {{0, 1}, {1, 2}}};
    std::array<float, 2> means{};
    AverageRows(spectra, {0, 2}, 1, means);
    EXPECT_EQ(means, (std::array<float, 2>{4, 6}));
    AverageRows(spectra, {1, 2}, 1, means);
    EXPECT_EQ(means, (std::array<float, 2>{6, 9}));
    AverageRows(spectra, {1, 2}, 7, means);
    EXPECT_TRUE(std::isnan(means[0]));
}

} // namespace
