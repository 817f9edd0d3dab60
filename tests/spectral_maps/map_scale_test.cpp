// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/map_scale.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta::spectral_maps;

constexpr orvanta::chart::ValueRange kOverall{3, 70};

struct Case {
    bool autoScale, zeroMin;
    MapScale own, cartoon;
};

class Scales : public testing::TestWithParam<Case> {
protected:
    static SPECT::PlotSet Setting() {
        SPECT::PlotSet setting;
        setting.LoScale = 10;
        setting.HiScale = 40;
        setting.bAutoScale = GetParam().autoScale;
        setting.bZeroMin = GetParam().zeroMin;
        return setting;
    }
};

TEST_P(Scales, OfAMapFollowItsSetting) {
    EXPECT_EQ(OwnScale(Setting(), kOverall), GetParam().own);
}

TEST_P(Scales, OfACartoonAreNeverAutomatic) {
    EXPECT_EQ(CartoonScale(Setting(), kOverall), GetParam().cartoon);
}

INSTANTIATE_TEST_SUITE_P(, Scales,
                         testing::Values(Case{true, false, {3, 70, true}, {3, 70, false}},
                                         Case{true, true, {0, 70, true}, {0, 70, false}},
                                         Case{false, false, {10, 40, false}, {10, 40, false}},
                                         Case{false, true, {0, 40, false}, {0, 40, false}}));

} // namespace
