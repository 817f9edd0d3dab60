// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/measures/measures_boxes.h"

#include "tests/spectrum_view/traces/trace_fixture.h"

#include <gmock/gmock.h>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using testing::Each;

/// Five bipolar channels, bins of 1 Hz up to 4 Hz.
class MeasuresBoxes : public test::TraceFixture {
protected:
    MeasuresBoxes() {
        UseFiveBipolarChannels();
        Add();
        view.grid = {1, 2};
    }
    std::optional<MeasuresBoxInput> Of(std::size_t cell, std::uint64_t firstTrace = 0) {
        list = BipolarList(manager, *recording, firstTrace, view.grid);
        const auto entries = list.Entries(manager);
        for (std::size_t i = 0; i < entries.size(); ++i) {
            entries[i].rectangle = {static_cast<int>(i) * 100, 0, static_cast<int>(i) * 100 + 100, 80};
        }
        return MeasuresBoxOf({manager, view, display, font}, entries, cell,
                             [](double value) { return value > 0 ? "more" : "none"; });
    }

    ViewState view;
    DisplaySettings display;
    owl::TFont font{"Verdana", 11, false, false};
    TraceList list;
};

TEST_F(MeasuresBoxes, HaveTheirCellTheFirstOneAndTheNames) {
    const auto box = Of(1);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->columns, 2u);
    EXPECT_EQ(box->rows, 1u);
    EXPECT_EQ(box->cell, (owl::TRect{100, 0, 200, 80}));
    EXPECT_EQ(box->firstCell, (owl::TRect{0, 0, 100, 80}));
    EXPECT_EQ(box->font, font);
    EXPECT_EQ(box->measures[0], "Abs");
    EXPECT_EQ(box->measures[7], "CV");
    EXPECT_EQ(box->bands[0].name, "Delta");
    EXPECT_EQ(box->bands[0].lo, 0.5);
    EXPECT_EQ(box->bands[0].hi, 4);
}

TEST_F(MeasuresBoxes, HaveTheFormattedValuesOfDefinedBands) {
    const auto box = Of(0);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->bands[0].values[0], "more");
    EXPECT_THAT(box->bands[7].values, Each("")); // not defined
}

TEST_F(MeasuresBoxes, AreMissingWhereThereIsNone) {
    EXPECT_FALSE(Of(1, 4)); // no fifth channel
    view.grid = {1, 3};
    EXPECT_FALSE(Of(0));
    view.grid = {3, 1};
    EXPECT_FALSE(Of(0));
    view.grid = {2, 2};
    EXPECT_TRUE(Of(0));
    display.showMeasuresBox = false;
    EXPECT_FALSE(Of(0));
    display.showMeasuresBox = true;
    view.layout = Layout::Mode::Scalp;
    EXPECT_FALSE(Of(0));
}

} // namespace
