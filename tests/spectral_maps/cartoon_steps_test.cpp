// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/cartoon_steps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::spectral_maps;
using testing::ElementsAre;

/// At 100 Hz.
std::int64_t Sample(const XTime* time) {
    return time->Nanoseconds() / 10'000'000;
}

struct Item {
    double begin, end; ///< seconds
    std::uint32_t step;
};

std::vector<CartoonStep> Steps(const std::vector<Item>& items, std::size_t most = 100) {
    XTimeList list;
    for (const Item& item : items) {
        list.push_back({XTime::FromSeconds(item.begin), XTime::FromSeconds(item.end)}, item.step);
    }
    return StepsOf(list, most, Sample);
}

TEST(CartoonSteps, BeginAndEndWithTheirItem) {
    EXPECT_THAT(Steps({{0.5, 1.5, 0}, {2, 3, 1}}), ElementsAre(CartoonStep{50, 150}, CartoonStep{200, 300}));
}

TEST(CartoonSteps, BeginWithTheEarliestItemAndEndWithTheLastOfTheList) {
    EXPECT_THAT(Steps({{3, 9, 0}, {1, 8, 0}, {2, 4, 0}}), ElementsAre(CartoonStep{100, 400}));
}

TEST(CartoonSteps, WithoutItemsInBetweenCountAndHaveNoTime) {
    EXPECT_THAT(Steps({{1, 2, 0}, {4, 5, 3}}),
                ElementsAre(CartoonStep{100, 200}, CartoonStep{2147483647, 0}, CartoonStep{2147483647, 0},
                            CartoonStep{400, 500}));
}

TEST(CartoonSteps, AreOneWithoutAnyItem) {
    EXPECT_THAT(Steps({}), ElementsAre(CartoonStep{2147483647, 0}));
}

TEST(CartoonSteps, AreNoMoreThanThereIsRoomFor) {
    EXPECT_THAT(Steps({{0, 1, 0}, {1, 2, 1}, {2, 3, 2}}, 2),
                ElementsAre(CartoonStep{0, 100}, CartoonStep{100, 200}));
    EXPECT_EQ(Steps({{0, 1, 4'000'000'000U}}, 3).size(), 3U);
    EXPECT_TRUE(Steps({{0, 1, 0}}, 0).empty());
}

} // namespace
