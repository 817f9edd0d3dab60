// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/map_titles.h"

#include "spectra_contract/spect_globals.h"
#include "spectra_contract/spectra_mgr.h"
#include "tests/support/globals_guard.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using namespace orvanta;
using namespace orvanta::spectral_maps;

class MapTitles : public testing::Test {
protected:
    MapTitles() {
        choice.SpectralBand = 2;
        choice.SpectralMeas = 5;
    }

    test::GlobalsGuard guard;
    SpectraMgr manager{nullptr, nullptr};
    SPECT::PlotSet choice;
};

TEST_F(MapTitles, AreLongForUpToFourMapsAcross) {
    EXPECT_EQ(MapTitle(manager, choice, 4), "Band: Alpha - Measure: Peak");
}

TEST_F(MapTitles, AreShortFromFiveMapsAcross) {
    EXPECT_EQ(MapTitle(manager, choice, 5), "Alpha - Peak");
}

TEST_F(MapTitles, OfNewMapsAndCartoonsHaveThreeBlanks) {
    EXPECT_EQ(WideTitle(manager, choice), "Band: Alpha   Measure: Peak");
}

TEST_F(MapTitles, OfNewMapsEndAfter127Bytes) {
    const std::string name(sizeof SPECT::Band::name - 1, 'b');
    std::strcpy(SPECT::GetGlobals().Bands[2].name, name.c_str());
    EXPECT_EQ(WideTitle(manager, choice), "Band: " + name + "   Measure: Peak");
    EXPECT_LE(WideTitle(manager, choice).size(), 127U);
}

TEST_F(MapTitles, TakePercentSignsInNamesAsTheyAre) {
    std::strcpy(SPECT::GetGlobals().Bands[2].name, "5%s");
    EXPECT_EQ(WideTitle(manager, choice), "Band: 5%s   Measure: Peak");
}

TEST_F(MapTitles, OfStepsTellTheirTime) {
    EXPECT_EQ(FirstStepTitle("00:00:02.000"), "Time: 00:00:02.000");
    EXPECT_EQ(StepTitle("00:00:01.000", "00:00:03.000"), "00:00:01.000 - 00:00:03.000 sec.");
}

} // namespace
