// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/map_choice.h"

#include "host/review/cli/exit_status.h"
#include "spectra_contract/spect_globals.h"
#include "tests/support/globals_guard.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace orvanta::cli {
namespace {

class MapChoice : public testing::Test {
protected:
    static std::pair<int, int> BandAndMeasure(const std::string& text) {
        const SPECT::PlotSet map = ParseMap(text);
        return {map.SpectralBand, map.SpectralMeas};
    }
    template <typename Action>
    static std::string RefusalOf(const Action& action) {
        try {
            action();
            return "not refused";
        } catch (const UsageError& failure) {
            return failure.what();
        }
    }

    test::GlobalsGuard guard;
};

TEST_F(MapChoice, NamesBandAndMeasure) {
    EXPECT_EQ(BandAndMeasure("Alpha:Abs"), std::pair(2, 0));
    EXPECT_EQ(BandAndMeasure("Alpha:Rel"), std::pair(2, 2));
    EXPECT_EQ(BandAndMeasure("Delta:Peak F"), std::pair(0, 3));
    EXPECT_EQ(BandAndMeasure("Gamma:CV"), std::pair(4, 7));
}

TEST_F(MapChoice, IgnoresCase) {
    EXPECT_EQ(BandAndMeasure("bETA:sef95"), std::pair(3, 6));
}

TEST_F(MapChoice, TakesNumbersToo) {
    EXPECT_EQ(BandAndMeasure("2:0"), std::pair(2, 0));
    EXPECT_EQ(BandAndMeasure("Theta:7"), std::pair(1, 7));
}

TEST_F(MapChoice, PrefersANameToANumber) {
    SPECT::Band& band = SPECT::GetGlobals().Bands[5];
    std::snprintf(band.name, sizeof band.name, "2");
    band.lo = 60;
    band.hi = 70;
    EXPECT_EQ(BandAndMeasure("2:0"), std::pair(5, 0));
}

TEST_F(MapChoice, TakesANameWithAColon) {
    std::snprintf(SPECT::GetGlobals().Bands[0].name, sizeof SPECT::Band::name, "8:12");
    EXPECT_EQ(BandAndMeasure("8:12:Abs"), std::pair(0, 0));
}

TEST_F(MapChoice, StartsWithAScaleOfItsOwnValues) {
    EXPECT_EQ(ParseMap("0:0"), (SPECT::PlotSet{0, 0, 0, 50, true, false}));
}

TEST_F(MapChoice, TellsTheBandsThereAre) {
    const std::string bands = "(there are 0 Delta, 1 Theta, 2 Alpha, 3 Beta, 4 Gamma)";
    EXPECT_EQ(RefusalOf([] { ParseMap("Mu:Abs"); }), "--map Mu:Abs: no band \"Mu\" " + bands);
    EXPECT_EQ(RefusalOf([] { ParseMap("5:Abs"); }), "--map 5:Abs: no band \"5\" " + bands); // not defined
    EXPECT_EQ(RefusalOf([] { ParseMap("-1:Abs"); }), "--map -1:Abs: no band \"-1\" " + bands);
    EXPECT_EQ(RefusalOf([] { ParseMap(":Abs"); }), "--map :Abs: no band \"\" " + bands);
}

TEST_F(MapChoice, TellsTheMeasuresThereAre) {
    const std::string measures =
        "(there are 0 Abs, 1 Mean, 2 Rel, 3 Peak F, 4 Mean F, 5 Peak, 6 SEF95, 7 CV)";
    EXPECT_EQ(RefusalOf([] { ParseMap("Alpha:Power"); }),
              "--map Alpha:Power: no measure \"Power\" " + measures);
    EXPECT_EQ(RefusalOf([] { ParseMap("Alpha:8"); }), "--map Alpha:8: no measure \"8\" " + measures);
    EXPECT_EQ(RefusalOf([] { ParseMap("Alpha:0x"); }), "--map Alpha:0x: no measure \"0x\" " + measures);
}

TEST_F(MapChoice, IsAPair) {
    EXPECT_EQ(RefusalOf([] { ParseMap("Alpha"); }), "--map Alpha: no BAND:MEASURE (such as Alpha:Abs)");
}

TEST_F(MapChoice, TakesOneScaleForAllMaps) {
    std::vector<SPECT::PlotSet> maps(2);
    ParseScaleRange("-2.5:60", maps);
    EXPECT_EQ(maps[0], (SPECT::PlotSet{0, 0, -2.5, 60, false, false}));
    EXPECT_EQ(maps[1], maps[0]);
}

TEST_F(MapChoice, RefusesAScaleThatIsNone) {
    for (const char* text : {"", "5", "5:5", "6:5", "a:5", "0:b", "0:inf", "nan:1", "0:5:6", "0,5:6"}) {
        std::vector<SPECT::PlotSet> maps(1);
        EXPECT_EQ(RefusalOf([&] { ParseScaleRange(text, maps); }),
                  std::string("--scale-range ") + text +
                      ": no LO:HI with the second number above the first (such as 0:60)");
    }
}

TEST_F(MapChoice, ShowsTheBandsThatAreDefinedWhenNothingIsChosen) {
    SPECT::GetGlobals().Bands[1].hi = 4; // as low as it begins
    std::vector<int> bands;
    for (const SPECT::PlotSet& map : MapsOfAllBands()) {
        EXPECT_EQ(map.SpectralMeas, 0);
        bands.push_back(map.SpectralBand);
    }
    EXPECT_EQ(bands, (std::vector<int>{0, 2, 3, 4}));
}

} // namespace
} // namespace orvanta::cli
