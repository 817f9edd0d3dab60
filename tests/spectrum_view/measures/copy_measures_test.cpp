// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/measures/copy_measures.h"

#include "host/toolkit/message_module.h"
#include "tests/spectrum_view/traces/trace_fixture.h"
#include "tests/support/qt/fake_global_window.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/scripted_user.h"

#include <QWidget>
#include <gmock/gmock.h>

#include <cmath>
#include <stdexcept>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using Message = test::ScriptedUser::Message;
using testing::ElementsAre;
using testing::IsEmpty;

/// Delta and Abs are selected.
class Copy : public test::TraceFixture {
protected:
    Copy() {
        PModule::SetHostStrings({{7521, "No bands selected."}, {7522, "No measures selected."}});
        SelectBands("10000000");
        SelectMeasures("10000000");
    }
    ~Copy() override { PModule::SetHostStrings({}); }

    void SelectBands(const char* flags) {
        for (unsigned i = 0; i < 8; ++i) {
            manager.GetBand(i).selected = flags[i] == '1';
        }
    }
    void SelectMeasures(const char* flags) {
        for (unsigned i = 0; i < 8; ++i) {
            SPECT::GetGlobals().MeasSelected[i] = flags[i] == '1';
        }
    }
    void CopyFrom(Layout::Mode layout, const TraceList& list = {}, const GridSize& grid = {2, 2}) {
        CopyMeasures(
            {platform, &module, "Host error", HWND(&owner), manager, layout, grid, list.Entries(manager)});
    }
    void CopyScalp() { CopyFrom(Layout::Mode::Scalp); }
    TraceList Grid(const GridSize& grid = {2, 2}) { return BipolarList(manager, *recording, 0, grid); }
    Message Warning(const char* text) { return {HWND(&owner), text, "Host error", 48}; }
    Message Failure() { return {HWND(&owner), "Exception thrown while copying values", "", 0}; }
    /// Formatting a value from \p low to below \p low + 1 throws.
    void FailOn(double low) {
        platform.onNumber = [low](double value) {
            if (std::floor(value) == low) {
                throw std::runtime_error("no such number");
            }
        };
    }

    QWidget owner;
    const PModule module{"Orvanta", nullptr, "no folder"};
    test::FakePlatform platform;
    test::FakeServices services;
    test::ScriptedUser user;
    const std::vector<std::string>& clipboard = services.clipboard.Texts();
};

TEST_F(Copy, WarnsWithoutABandAndCopiesNothing) {
    Add();
    SelectBands("00000000");
    user.AnswersMessage(owl::kIdOk);
    CopyScalp();
    EXPECT_THAT(user.Messages(), ElementsAre(Warning("No bands selected.")));
    EXPECT_THAT(clipboard, IsEmpty());
}

TEST_F(Copy, WarnsWithoutAMeasureAndCopiesNothing) {
    Add();
    SelectMeasures("00000000");
    user.AnswersMessage(owl::kIdOk);
    CopyScalp();
    EXPECT_THAT(user.Messages(), ElementsAre(Warning("No measures selected.")));
    EXPECT_THAT(clipboard, IsEmpty());
}

TEST_F(Copy, WarnsOfTheBandsOnlyWhenBothAreMissing) {
    SelectBands("00000000");
    SelectMeasures("00000000");
    user.AnswersMessage(owl::kIdOk);
    CopyScalp();
    EXPECT_THAT(user.Messages(), ElementsAre(Warning("No bands selected.")));
}

TEST_F(Copy, CutsAWarningAt127Characters) {
    PModule::SetHostStrings({{7521, std::string(200, 'x')}});
    SelectBands("00000000");
    user.AnswersMessage(owl::kIdOk);
    CopyScalp();
    EXPECT_EQ(user.Messages().at(0).text, std::string(127, 'x'));
}

// --- scalp

TEST_F(Copy, TakesTheSensorsInTheirOrderOnTheScalp) {
    UseFiveBipolarChannels();
    Add();
    CopyFrom(Layout::Mode::Scalp, Grid());
    EXPECT_THAT(clipboard, ElementsAre("Fp1\tAbs\r\nDelta\t24.747\r\n\r\n"
                                       "F3\tAbs\r\nDelta\t27.086\r\n\r\n"
                                       "Cz\tAbs\r\nDelta\t20.676\r\n\r\n"));
}

TEST_F(Copy, CopiesAnEmptyTextWithoutAMainAnalysis) {
    CopyScalp();
    EXPECT_THAT(clipboard, ElementsAre(""));
}

TEST_F(Copy, CopiesAnEmptyTextBeforeAnythingIsComputed) {
    Add(false);
    CopyScalp();
    EXPECT_THAT(clipboard, ElementsAre(""));
}

TEST_F(Copy, CopiesNothingWhenAValueFailsOnTheScalp) {
    Add();
    FailOn(27);
    EXPECT_THROW(CopyScalp(), std::runtime_error);
    EXPECT_THAT(clipboard, IsEmpty());
}

// --- grid

TEST_F(Copy, TakesTheCellsInTheirOrderInTheGrid) {
    Use("B = +F3 -Cz\nA = +Fp1 -F3");
    Add();
    CopyFrom(Layout::Mode::Grid, Grid());
    EXPECT_THAT(clipboard, ElementsAre("B\tAbs\r\nDelta\t51.559\r\n\r\n"
                                       "A\tAbs\r\nDelta\t57.390\r\n\r\n"));
}

TEST_F(Copy, SkipsEmptyCells) {
    Use("A = +Fp1 -F3\nB = +F3 -Cz");
    const SpectMacroResult* main = Add();
    std::vector<TraceEntry> cells(4);
    cells[1].main = main->GetSpectrum(Channel(1));
    CopyFrom(Layout::Mode::Grid, TraceList(manager, cells));
    EXPECT_THAT(clipboard, ElementsAre("B\tAbs\r\nDelta\t51.559\r\n\r\n"));
}

TEST_F(Copy, CopiesAnEmptyTextWhenEveryCellIsEmpty) {
    Use("Fp1 = +Fp1\nF3 = +F3"); // referential: no channel in the grid
    Add();
    CopyFrom(Layout::Mode::Grid, Grid());
    EXPECT_THAT(clipboard, ElementsAre(""));
}

TEST_F(Copy, TakesNoMoreTracesThanTheGridHasCells) {
    UseFiveBipolarChannels();
    Add();
    CopyFrom(Layout::Mode::Grid, Grid({2, 2}), {1, 1});
    EXPECT_THAT(clipboard, ElementsAre("A\tAbs\r\nDelta\t57.390\r\n\r\n"));
}

TEST_F(Copy, TakesNoMoreCellsThanThereAreTraces) {
    Use("A = +Fp1 -F3\nB = +F3 -Cz");
    Add();
    CopyFrom(Layout::Mode::Grid, Grid({1, 1}), {4, 4});
    EXPECT_THAT(clipboard, ElementsAre("A\tAbs\r\nDelta\t57.390\r\n\r\n"));
}

TEST_F(Copy, TakesNoSpectraThatWereComputedAnewSince) {
    UseFiveBipolarChannels();
    SpectMacroResult* main = Add();
    const TraceList list = Grid();
    main->ResetData();
    CopyFrom(Layout::Mode::Grid, list);
    EXPECT_THAT(clipboard, ElementsAre(""));
}

TEST_F(Copy, TellsOfEachLineWithAValueThatFailsInTheGridAndGoesOn) {
    Use("A = +Fp1 -F3\nB = +F3 -Cz");
    Add();
    SelectBands("11000000");
    SelectMeasures("10110000"); // Abs, Rel, Peak F
    FailOn(3);                  // the peak of Delta in both
    user.AnswersMessage(owl::kIdOk).AnswersMessage(owl::kIdOk);
    CopyFrom(Layout::Mode::Grid, Grid());
    EXPECT_THAT(user.Messages(), ElementsAre(Failure(), Failure()));
    EXPECT_THAT(clipboard, ElementsAre("A\tAbs\tRel\tPeak F\r\n"
                                       "Delta\t57.390\t90.743\r\n"
                                       "Theta\t5.855\t9.257\t4.000\r\n\r\n"
                                       "B\tAbs\tRel\tPeak F\r\n"
                                       "Delta\t51.559\t85.937\r\n"
                                       "Theta\t8.437\t14.063\t4.000\r\n\r\n"));
}

TEST_F(Copy, ExportsASelectedBandWithoutWidth) {
    Use("A = +Fp1 -F3\nB = +F3 -Cz");
    Add();
    SelectBands("10000001");
    CopyFrom(Layout::Mode::Grid, Grid({1, 1}), {1, 1});
    EXPECT_THAT(clipboard, ElementsAre("A\tAbs\r\nDelta\t57.390\r\n\tn/a\r\n\r\n"));
}

} // namespace
