// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/plot_set_store.h"

#include "tests/support/map_user.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace orvanta;
using namespace orvanta::chart;
using testing::ElementsAre;

const SPECT::PlotSet kNew{0, 0, 0.0, 50.0, true, false};
const SPECT::PlotSet kOther{6, 3, -1.5, 12.25, false, true};

TEST(PlotSetStore, GivesANewUserTheFirstBandAndMeasureScaledByTheData) {
    EXPECT_EQ(LoadPlotSet(test::MapUser(), "Here"), kNew);
}

TEST(PlotSetStore, GivesBackWhatItKept) {
    test::MapUser user;
    SavePlotSet(user, "Here", kOther);

    EXPECT_EQ(LoadPlotSet(user, "Here"), kOther);
    EXPECT_EQ(LoadPlotSet(user, "Elsewhere"), kNew);
}

TEST(PlotSetStore, ReadsAndWritesItsKeysInOneOrder) {
    test::MapUser user;
    SavePlotSet(user, "Here", kOther);
    LoadPlotSet(user, "Here");

    const auto keys = ElementsAre("Here/SpectralBand", "Here/SpectralMeas", "Here/bAutoScale",
                                  "Here/bZeroMin", "Here/LoScale", "Here/HiScale");
    EXPECT_THAT(user.written, keys);
    EXPECT_THAT(user.asked, keys);
}

TEST(PlotSetStore, WritesFlagsAsOneAndZero) {
    test::MapUser user;
    SavePlotSet(user, "Here", kOther);

    EXPECT_EQ(user.values["Here/bAutoScale"], 0);
    EXPECT_EQ(user.values["Here/bZeroMin"], 1);
}

TEST(PlotSetStore, ReadsEveryNumberButZeroAsTrue) {
    test::MapUser user;
    user.values = {{"Here/bAutoScale", -3}, {"Here/bZeroMin", 2}};

    EXPECT_TRUE(LoadPlotSet(user, "Here").bAutoScale);
    EXPECT_TRUE(LoadPlotSet(user, "Here").bZeroMin);
}

TEST(PlotSetStore, TakesWhatDoesNotExistForMissing) {
    test::MapUser user;
    user.values = {{"Here/SpectralBand", 8},
                   {"Here/SpectralMeas", -1},
                   {"Here/LoScale", std::numeric_limits<double>::quiet_NaN()},
                   {"Here/HiScale", std::numeric_limits<double>::infinity()}};

    EXPECT_EQ(LoadPlotSet(user, "Here"), kNew);
}

} // namespace
