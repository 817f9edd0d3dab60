// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spect_globals.h"

#include "host/platform/host_platform.h"
#include "tests/support/comma_numerals.h"
#include "tests/support/recording_gui.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace SPECT {
namespace {

using Texts = std::vector<std::pair<const char*, const char*>>;

/// A host platform with settings of its own.
class GlobalsStore : public testing::Test {
protected:
    void Store(const Texts& texts) {
        for (const auto& [key, text] : texts) {
            platform.WriteString("Spectrum", key, text);
        }
    }
    std::string Stored(const char* key) const {
        char text[256];
        platform.ReadString("Spectrum", key, "(absent)", text, 255);
        return text;
    }
    Globals Loaded() {
        Globals globals;
        globals.LoadInfo(&platform);
        return globals;
    }

    orvanta::test::TempFolder folder;
    orvanta::test::RecordingGui gui;
    orvanta::platform::HostPlatform platform{gui, folder.Path("settings.ini"), folder.Path("data")};
};

TEST(Globals, DefaultsAreTheFiveClassicBands) {
    const Globals globals;
    EXPECT_STREQ(globals.Bands[0].name, "Delta");
    EXPECT_EQ(globals.Bands[0].lo, 0.5);
    EXPECT_EQ(globals.Bands[0].hi, 4);
    EXPECT_STREQ(globals.Bands[1].name, "Theta");
    EXPECT_EQ(globals.Bands[1].hi, 8);
    EXPECT_STREQ(globals.Bands[2].name, "Alpha");
    EXPECT_EQ(globals.Bands[2].hi, 13);
    EXPECT_STREQ(globals.Bands[3].name, "Beta");
    EXPECT_EQ(globals.Bands[3].hi, 30);
    EXPECT_STREQ(globals.Bands[4].name, "Gamma");
    EXPECT_EQ(globals.Bands[4].hi, 45);
    for (int i = 5; i < 8; ++i) {
        EXPECT_FALSE(globals.Bands[i].IsDefined()) << i;
    }
    EXPECT_EQ(globals.TotalLo, 0.5);
    EXPECT_EQ(globals.TotalHi, 45);
}

TEST(Globals, EverythingIsSelectedAndTheEntityIsPowerByDefault) {
    const Globals globals;
    for (int i = 0; i < 8; ++i) {
        EXPECT_TRUE(globals.Bands[i].selected) << i;
        EXPECT_TRUE(globals.MeasSelected[i]) << i;
    }
    EXPECT_EQ(globals.GetMeasEntity(), Entity::Type::Power);
}

TEST(Globals, ABandOfAHundredthOfAHertzOrLessIsNotDefined) {
    EXPECT_FALSE((Band{8, 8, "", true}.IsDefined()));
    EXPECT_FALSE((Band{8, 8.01 - 1e-9, "", true}.IsDefined()));
    EXPECT_FALSE((Band{13, 8, "", true}.IsDefined()));
    EXPECT_TRUE((Band{8, 8.02, "", true}.IsDefined()));
}

TEST_F(GlobalsStore, SaveWritesTheSelectionsAsEightCharacters) {
    Globals globals;
    globals.Bands[1].selected = false;
    globals.MeasSelected[7] = false;
    globals.SaveInfo(&platform);
    EXPECT_EQ(Stored("BandSelect"), "10111111");
    EXPECT_EQ(Stored("MeasureSelect"), "11111110");
}

TEST_F(GlobalsStore, WhatIsSavedIsLoaded) {
    Globals saved;
    saved.Bands[5].lo = 11.25;
    saved.Bands[5].hi = 15.1;
    std::strcpy(saved.Bands[5].name, "Sigma");
    saved.Bands[0].selected = false;
    saved.TotalLo = 1;
    saved.TotalHi = 40.3;
    saved.MeasSelected[2] = false;
    saved.SaveInfo(&platform);
    const Globals loaded = Loaded();
    EXPECT_EQ(loaded.Bands[5].lo, 11.25);
    EXPECT_EQ(loaded.Bands[5].hi, 15.1);
    EXPECT_STREQ(loaded.Bands[5].name, "Sigma");
    EXPECT_FALSE(loaded.Bands[0].selected);
    EXPECT_EQ(loaded.TotalLo, 1);
    EXPECT_EQ(loaded.TotalHi, 40.3);
    EXPECT_FALSE(loaded.MeasSelected[2]);
    EXPECT_TRUE(loaded.MeasSelected[3]);
}

TEST_F(GlobalsStore, NumbersHaveAPointWhateverTheUsersNumeralsAre) {
    const orvanta::test::CommaNumerals comma;
    Globals saved;
    saved.TotalHi = 40.5;
    saved.SaveInfo(&platform);
    EXPECT_EQ(Stored("Band0Lo"), "0.5");
    EXPECT_EQ(Stored("TotalHi"), "40.5");
    EXPECT_EQ(Loaded().TotalHi, 40.5);
}

TEST_F(GlobalsStore, LoadingNothingKeepsTheDefaults) {
    const Globals globals = Loaded();
    EXPECT_EQ(globals.Bands[2].lo, 8);
    EXPECT_STREQ(globals.Bands[2].name, "Alpha");
    EXPECT_EQ(globals.TotalHi, 45);
    EXPECT_TRUE(globals.Bands[2].selected);
}

class WrongNumbers : public GlobalsStore,
                     public testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(WrongNumbers, KeepTheBand) {
    const auto [lo, hi] = GetParam();
    Store({{"Band2Lo", lo}, {"Band2Hi", hi}, {"TotalLo", lo}, {"TotalHi", hi}});
    const Globals globals = Loaded();
    EXPECT_EQ(globals.Bands[2].lo, 8);
    EXPECT_EQ(globals.Bands[2].hi, 13);
    EXPECT_EQ(globals.TotalLo, 0.5);
    EXPECT_EQ(globals.TotalHi, 45);
}

INSTANTIATE_TEST_SUITE_P(Globals, WrongNumbers,
                         testing::Values(std::pair("eight", "13"), std::pair("8", ""), std::pair("nan", "13"),
                                         std::pair("8", "inf"), std::pair("8,5", "13,5"),
                                         std::pair("8 Hz", "13"), std::pair("1e999", "2e999")));

class FiniteEdges : public GlobalsStore, public testing::WithParamInterface<std::pair<double, double>> {};

TEST_P(FiniteEdges, AreLoadedAsTheyWereSaved) {
    const auto [lo, hi] = GetParam();
    Globals saved;
    saved.Bands[2].lo = saved.TotalLo = lo;
    saved.Bands[2].hi = saved.TotalHi = hi;
    saved.SaveInfo(&platform);
    const Globals loaded = Loaded();
    EXPECT_EQ(loaded.Bands[2].lo, lo);
    EXPECT_EQ(loaded.Bands[2].hi, hi);
    EXPECT_EQ(loaded.Bands[2].IsDefined(), saved.Bands[2].IsDefined());
    EXPECT_EQ(loaded.TotalLo, lo);
    EXPECT_EQ(loaded.TotalHi, hi);
}

INSTANTIATE_TEST_SUITE_P(Globals, FiniteEdges,
                         testing::Values(std::pair(8.0, 8.0),   // no width
                                         std::pair(13.0, 8.0),  // reversed: not defined, and stays so
                                         std::pair(-1.0, 13.0), // below 0
                                         std::pair(0.1 + 0.2, 1e300)));

TEST_F(GlobalsStore, WhatIsWrongKeepsTheValueItHad) {
    Store({{"Band2Lo", "eight"}, {"Band2Hi", "13"}});
    Globals globals;
    globals.Bands[2].lo = 7;
    globals.Bands[2].hi = 12;
    globals.LoadInfo(&platform);
    EXPECT_EQ(globals.Bands[2].lo, 7);
    EXPECT_EQ(globals.Bands[2].hi, 12);
}

TEST_F(GlobalsStore, AnEmptyNameIsLoadedAsEmpty) {
    Store({{"Band0Name", ""}});
    EXPECT_STREQ(Loaded().Bands[0].name, "");
}

TEST_F(GlobalsStore, ALongNameIsCutBetweenCharacters) {
    const std::string name = std::string(62, 'a') + "µz";
    Store({{"Band0Name", name.c_str()}});
    EXPECT_EQ(std::string(Loaded().Bands[0].name), std::string(62, 'a'));
}

TEST_F(GlobalsStore, ANameThatFillsItsFieldIsSavedWhole) {
    Globals globals;
    std::memset(globals.Bands[0].name, 'b', sizeof globals.Bands[0].name);
    globals.SaveInfo(&platform);
    EXPECT_EQ(Stored("Band0Name"), std::string(64, 'b'));
}

TEST_F(GlobalsStore, ShortAndOddSelectionsKeepWhatTheyDoNotSay) {
    Store({{"BandSelect", "0x1"}, {"MeasureSelect", "000000000000"}});
    Globals globals;
    globals.Bands[1].selected = false;
    globals.LoadInfo(&platform);
    EXPECT_FALSE(globals.Bands[0].selected);
    EXPECT_FALSE(globals.Bands[1].selected);
    EXPECT_TRUE(globals.Bands[2].selected);
    EXPECT_TRUE(globals.Bands[3].selected);
    EXPECT_FALSE(globals.MeasSelected[7]);
}

TEST(Globals, WithoutAPlatformNothingHappens) {
    Globals globals;
    globals.SaveInfo(nullptr);
    globals.LoadInfo(nullptr);
    EXPECT_EQ(globals.TotalHi, 45);
}

} // namespace
} // namespace SPECT
