// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/traces/over_time_plots.h"

#include "host/signal_base/recording.h"
#include "spectrum_view/traces/view_coords.h"
#include "tests/spectrum_view/traces/trace_fixture.h"

#include <utility>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;

/// Five bipolar channels over 5 s in windows of 1 s, half overlapping: 9 epochs.
class OverTime : public test::TraceFixture {
protected:
    OverTime() {
        UseFiveBipolarChannels();
        main = Add();
        display.range = {0, 4};
        display.mode = SPECT::Data::Mode::CSA;
    }
    std::vector<OverTimeInput> Plots(std::uint64_t firstTrace = 0, int side = 100) {
        list = BipolarList(manager, *recording, firstTrace, {1, 2});
        SetGridCoords(list.Entries(manager), {0, 0, 2 * side, side}, 0, {1, 2});
        return plots.Of({manager, view, display, {}}, *recording, std::as_const(list).Entries(manager));
    }
    std::vector<float> Epoch(std::size_t epoch, std::size_t channel) const {
        std::vector<double> values;
        main->GetSpeCartoon(values, epoch, Channel(channel));
        return {values.begin(), values.end()};
    }

    ViewState view;
    DisplaySettings display;
    TraceList list;
    OverTimePlots plots;
    SpectMacroResult* main = nullptr;
};

TEST_F(OverTime, ARowPerEpochWhereThereIsRoom) {
    const auto inputs = Plots();
    ASSERT_EQ(inputs.size(), 2u);
    ASSERT_EQ(inputs[1].spectra.rows.size(), 9u);
    EXPECT_EQ(std::vector<float>(inputs[1].spectra.Row(8).begin(), inputs[1].spectra.Row(8).end()),
              Epoch(8, 1));
    EXPECT_EQ(inputs[1].begin_s, 0);
    EXPECT_EQ(inputs[1].end_s, 5);
    EXPECT_EQ(inputs[1].axis, (FrequencyAxis{0, 4, 1, 0, 4}));
    EXPECT_EQ(inputs[1].frame.slot, (owl::TRect{100, 0, 200, 100}));
    EXPECT_EQ(inputs[1].frame.label, "B (µV²/Hz) ");
    EXPECT_EQ(inputs[1].color, main->GetMacro().Color);
}

TEST_F(OverTime, WithoutAStartTimeTheClockCountsFromTheStart) {
    EXPECT_EQ(Plots()[0].startOfDay_s, 0);
}

TEST(OverTimeOfADay, TheClockShowsTheTimeOfDay) {
    const test::GlobalsGuard guard;
    signal::RecordingData data = test::SmallData();
    data.start = signal::StartTime{2026, 3, 1, 22, 15, 30, 250000};
    const std::unique_ptr<EEGFileInfoType> recording = signal::MakeRecording(std::move(data));
    SpectraMgr manager(recording.get(), nullptr);
    auto* main = new SpectMacroResult(test::SmallMacro(), recording.get(), nullptr);
    main->Compute(nullptr);
    manager.push_back(main);
    TraceList list = *CephalicList(manager, *recording);
    OverTimePlots plots;
    const ViewState view;
    const DisplaySettings display;
    const auto inputs =
        plots.Of({manager, view, display, {}}, *recording, std::as_const(list).Entries(manager));
    EXPECT_EQ(inputs.at(0).startOfDay_s, 80130.25); // 22:15:30.25
}

TEST_F(OverTime, NoMoreRowsThanTheNextPowerOfTwoOfTheLongerSide) {
    EXPECT_EQ(Plots(0, 3)[0].spectra.rows.size(), 4u);
    EXPECT_EQ(Plots(0, 2)[0].spectra.rows.size(), 2u);
    EXPECT_EQ(Plots(0, 100)[0].spectra.rows.size(), 9u); // after fewer, all again
}

TEST_F(OverTime, AnEmptySlotHasNoRow) {
    const auto inputs = Plots(4);
    EXPECT_EQ(inputs[0].spectra.rows.size(), 9u);
    EXPECT_TRUE(inputs[1].spectra.rows.empty());
    EXPECT_FALSE(inputs[1].frame.vertical.IsDrawable());
}

TEST_F(OverTime, TheCompressedArrayHasFiveTimesTheRange) {
    const double five = Plots()[0].frame.vertical.max;
    display.mode = SPECT::Data::Mode::TimeFrequency;
    EXPECT_DOUBLE_EQ(five, 5 * Plots()[0].frame.vertical.max);
}

TEST_F(OverTime, PagesEntitiesAndComputationsAreFollowed) {
    Plots();
    EXPECT_EQ(Plots(2)[0].spectra.Row(3)[2], Epoch(3, 2)[2]);
    EXPECT_EQ(Plots(0)[0].spectra.Row(3)[2], Epoch(3, 0)[2]);
    manager.SetMeasEntity(SPECT::Entity::Type::Amplitude);
    EXPECT_EQ(Plots(0)[0].spectra.Row(3)[2], Epoch(3, 0)[2]);
    main->GetMacro().SetOverlapPerc(0);
    main->Compute(nullptr);
    EXPECT_EQ(Plots(0)[0].spectra.rows.size(), 5u);
    EXPECT_EQ(Plots(0)[0].spectra.Row(3)[2], Epoch(3, 0)[2]);
}

TEST_F(OverTime, TheSameTraceTwiceIsShownTwice) {
    list = BipolarList(manager, *recording, 0, {1, 2});
    const TraceEntry first = list.Entries(manager)[0];
    const std::vector<TraceEntry> twice{first, first};
    for (int paint = 0; paint < 2; ++paint) {
        const auto inputs = plots.Of({manager, view, display, {}}, *recording, twice);
        EXPECT_EQ(inputs[1].spectra.values, inputs[0].spectra.values);
        EXPECT_FALSE(inputs[1].spectra.values.empty());
    }
}

} // namespace
