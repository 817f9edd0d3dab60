// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/stored_maps.h"

#include "tests/support/qt/fake_global_window.h"

#include <gtest/gtest.h>

namespace {

using orvanta::chart::PaletteIndex;
using orvanta::chart::ReadStoredMaps;
using orvanta::chart::StoredMaps;
using orvanta::chart::StoreMaps;
using orvanta::test::FakePlatform;

TEST(StoredMapsOfAView, AreTwoRowsOfFourForANewUser) {
    const FakePlatform platform;
    const StoredMaps maps = ReadStoredMaps(platform, "SpectMap");
    EXPECT_EQ(maps.grid, (orvanta::chart::MapGrid{2, 4}));
    EXPECT_EQ(maps.display.palette, "viridis");
    EXPECT_TRUE(maps.display.electrodes);
    EXPECT_FALSE(maps.display.names);
    EXPECT_FALSE(maps.display.values);
    EXPECT_EQ(maps.display.contours, 6);
    EXPECT_EQ(maps.display.opacity, 100);
    EXPECT_FALSE(maps.singlePalette);
    EXPECT_FALSE(maps.locked);
    EXPECT_FALSE(maps.table);
}

TEST(StoredMapsOfAView, ComeBackAsTheyWere) {
    FakePlatform platform;
    StoredMaps maps;
    maps.grid = {3, 5};
    maps.display.palette = "turbo";
    maps.display.electrodes = false;
    maps.display.names = true;
    maps.display.values = true;
    maps.display.contours = 0;
    maps.display.opacity = 40;
    maps.singlePalette = true;
    maps.locked = true;
    maps.table = true;
    StoreMaps(platform, "SpectMap", maps);
    EXPECT_EQ(ReadStoredMaps(platform, "SpectMap"), maps);
    EXPECT_EQ(ReadStoredMaps(platform, "Other"), StoredMaps());
}

TEST(StoredMapsOfAView, AreRepairedWhenOutOfRange) {
    FakePlatform platform;
    platform.user.values = {{"M/MapRows", -3},
                            {"M/MapColumns", 70000},
                            {"M/MapContours", 21},
                            {"M/MapOpacity", 101},
                            {"M/MapElectrodes", 7}};
    platform.texts["M/MapPalette"] = "rainbow";
    const StoredMaps maps = ReadStoredMaps(platform, "M");
    EXPECT_EQ(maps.grid, (orvanta::chart::MapGrid{1, 8}));
    EXPECT_EQ(maps.display.contours, 20);
    EXPECT_EQ(maps.display.opacity, 100);
    EXPECT_TRUE(maps.display.electrodes);
    EXPECT_EQ(maps.display.palette, "viridis");
}

TEST(NumberOfPalette, FollowsTheList) {
    EXPECT_EQ(PaletteIndex("viridis"), 0);
    EXPECT_EQ(PaletteIndex("turbo"), 4);
    EXPECT_EQ(PaletteIndex("rainbow"), 0);
}

} // namespace
