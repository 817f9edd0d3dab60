// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/traces/view_coords.h"

#include "host/chart_view/view_regions.h"
#include "tests/spectrum_view/traces/trace_fixture.h"

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;

TEST(GridCoords, DivideTheAreaLessTheFontsHeightRoundedToNearest) {
    std::vector<TraceEntry> entries(6);
    SetGridCoords(entries, {0, 0, 300, 200}, -12, {3, 2});
    EXPECT_EQ(entries[0].rectangle, (owl::TRect{0, 0, 150, 63}));
    EXPECT_EQ(entries[1].rectangle, (owl::TRect{150, 0, 300, 63}));
    EXPECT_EQ(entries[2].rectangle, (owl::TRect{0, 63, 150, 125}));
    EXPECT_EQ(entries[3].rectangle, (owl::TRect{150, 63, 300, 125}));
    EXPECT_EQ(entries[4].rectangle, (owl::TRect{0, 125, 150, 188}));
    EXPECT_EQ(entries[5].rectangle, (owl::TRect{150, 125, 300, 188}));
}

TEST(GridCoords, DoNotAddTheAreasCorner) {
    std::vector<TraceEntry> entries(1);
    SetGridCoords(entries, {40, 30, 340, 230}, 12, {1, 1});
    EXPECT_EQ(entries[0].rectangle, (owl::TRect{0, 0, 300, 188}));
}

TEST(GridCoords, EntriesBeyondTheGridHaveNoPlace) {
    std::vector<TraceEntry> entries(3);
    entries[2].rectangle = {1, 2, 3, 4};
    SetGridCoords(entries, {0, 0, 300, 200}, 0, {1, 2});
    EXPECT_EQ(entries[1].rectangle, (owl::TRect{150, 0, 300, 200}));
    EXPECT_EQ(entries[2].rectangle, owl::TRect());
}

TEST(GridCoords, AShortListIsPlacedAsFarAsItGoes) {
    std::vector<TraceEntry> entries(10);
    SetGridCoords(entries, {0, 0, 400, 400}, 0, {4, 4});
    EXPECT_EQ(entries[9].rectangle, (owl::TRect{100, 200, 200, 300}));
}

TEST(GridCoords, WithoutCellsNothingHasAPlace) {
    for (const GridSize grid : {GridSize{0, 4}, GridSize{4, 0}, GridSize{0, 0}}) {
        std::vector<TraceEntry> entries(2, {nullptr, nullptr, {1, 2, 3, 4}});
        SetGridCoords(entries, {0, 0, 300, 200}, 0, grid);
        EXPECT_EQ(entries[0].rectangle, owl::TRect());
        EXPECT_EQ(entries[1].rectangle, owl::TRect());
    }
}

TEST(GridCoords, AnAreaLowerThanTheFontLeavesNothingToSee) {
    std::vector<TraceEntry> entries(2);
    SetGridCoords(entries, {0, 0, 300, 8}, 12, {2, 1});
    EXPECT_TRUE(entries[0].rectangle.IsEmpty());
    EXPECT_TRUE(entries[1].rectangle.IsEmpty());
}

// --- scalp

class ScalpCoords : public test::TraceFixture {
protected:
    std::vector<TraceEntry> Placed(const owl::TRect& area) {
        auto list = CephalicList(manager, *recording);
        const auto entries = list->Entries(manager);
        SetScalpCoords(entries, area, *recording);
        return {entries.begin(), entries.end()};
    }
    owl::TRect Region(const std::string& name, const MyRect& head) const {
        SensorList sensors;
        recording->GetTraceInfo()->GetSensorsList(sensors, Sensor::Class::Eeg);
        return Get2DViewRegions(sensors, head).at(name);
    }
};

TEST_F(ScalpCoords, SensorsStandAtTheirElectrodes) {
    UseFiveBipolarChannels();
    Add();
    const auto entries = Placed({20, 10, 620, 410});
    const MyRect head{320, 210, 600, 400};
    EXPECT_EQ(entries[0].rectangle, Region("Fp1", head));
    EXPECT_EQ(entries[1].rectangle, Region("F3", head));
    EXPECT_EQ(entries[2].rectangle, Region("Cz", head));
}

TEST_F(ScalpCoords, ChannelsOfAMappableMontageStandAtTheirPosition) {
    Use("middle = +Cz\nleft = +Fp1");
    Add();
    const auto entries = Placed({0, 0, 600, 400});
    EXPECT_EQ(entries[0].rectangle, Region("Cz", {300, 200, 600, 400}));
    EXPECT_EQ(entries[1].rectangle, Region("Fp1", {300, 200, 600, 400}));
}

TEST_F(ScalpCoords, WithoutASpectrumThereIsNoPlace) {
    UseFiveBipolarChannels();
    Add(false);
    for (const TraceEntry& entry : Placed({0, 0, 600, 400})) {
        EXPECT_EQ(entry.rectangle, owl::TRect());
    }
}

TEST_F(ScalpCoords, ATraceWhoseNameHasNoRegionIsKeptWithoutAPlace) {
    recording = signal::MakeRecording(
        test::MakeData({{"EEG 7", 8, test::Fp1Values(40), "uV"}, {"Cz", 8, test::CzValues(40), "uV"}}));
    Add();
    const auto entries = Placed({0, 0, 600, 400});
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_NE(entries[0].main, nullptr);
    EXPECT_EQ(entries[0].rectangle, owl::TRect());
    EXPECT_FALSE(entries[1].rectangle.IsEmpty());
}

} // namespace
