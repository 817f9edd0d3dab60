// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/measures/clipboard_table.h"

#include "tests/spectrum_view/traces/trace_fixture.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;

std::string ThreeDecimals(double value) {
    char text[32] = {};
    std::snprintf(text, sizeof text, std::isfinite(value) ? "%.3f" : "n/a", value);
    return text;
}

/// Fails on what is 8 to 9.
std::string FailsOnEight(double value) {
    if (std::floor(value) == 8) {
        throw std::runtime_error("no 8");
    }
    return ThreeDecimals(value);
}

const TableKey kDelta{0, "Delta"}, kTheta{1, "Theta"}, kAlpha{2, "Alpha"}, kNone{6, "Empty"};
const TableKey kAbs{0, "Abs"}, kMean{1, "Mean"}, kRel{2, "Rel"}, kPeakF{3, "Peak F"}, kPeak{5, "Peak"};

/// Fp1, F3 and Cz at 8 Hz in windows of 1 s. Their power in Delta and Theta was worked out by a script.
class Table : public test::TraceFixture {
protected:
    Table() { Add(); }
    NamedSpectrum Of(const char* name) const {
        return {name, manager.GetMain()->GetSpectrum(test::SensorOf(*recording, name))};
    }
};

TEST_F(Table, IsOneBlockForATrace) {
    EXPECT_EQ(MeasuresTable({Of("Fp1")}, {{kDelta, kTheta}, {kAbs, kRel}}, ThreeDecimals),
              "Fp1\tAbs\tRel\r\n"
              "Delta\t24.747\t92.027\r\n"
              "Theta\t2.144\t7.973\r\n"
              "\r\n");
}

TEST_F(Table, EndsEveryBlockWithAnEmptyLine) {
    EXPECT_EQ(MeasuresTable({Of("Cz"), Of("F3")}, {{kDelta}, {kPeakF, kPeak}}, ThreeDecimals),
              "Cz\tPeak F\tPeak\r\n"
              "Delta\t2.000\t7.626\r\n"
              "\r\n"
              "F3\tPeak F\tPeak\r\n"
              "Delta\t3.000\t12.444\r\n"
              "\r\n");
}

TEST_F(Table, SaysOfWhatIsNotComputableThatItIsNot) {
    EXPECT_EQ(MeasuresTable({Of("Fp1")}, {{kAlpha}, {kAbs, kPeakF}}, ThreeDecimals), "Fp1\tAbs\tPeak F\r\n"
                                                                                     "Alpha\tn/a\tn/a\r\n"
                                                                                     "\r\n");
}

TEST_F(Table, HasBandsWithoutWidth) {
    EXPECT_EQ(MeasuresTable({Of("Fp1")}, {{kNone}, {kAbs}}, ThreeDecimals), "Fp1\tAbs\r\n"
                                                                            "Empty\tn/a\r\n"
                                                                            "\r\n");
}

TEST_F(Table, IsEmptyWithoutTraces) {
    EXPECT_EQ(MeasuresTable({}, {{kDelta}, {kAbs}}, ThreeDecimals), "");
}

TEST_F(Table, EndsALineAtAValueThatCannotBeHadAndGoesOn) {
    int told = 0;
    EXPECT_EQ(MeasuresTable({Of("Fp1")}, {{kDelta, kTheta}, {kAbs, kMean, kRel}}, FailsOnEight,
                            [&told] { ++told; }),
              "Fp1\tAbs\tMean\tRel\r\n"
              "Delta\t24.747\r\n"
              "Theta\t2.144\t2.144\t7.973\r\n"
              "\r\n");
    EXPECT_EQ(told, 1);
}

TEST_F(Table, LetsTheFailureOutWhenNobodyIsTold) {
    EXPECT_THROW(MeasuresTable({Of("Fp1")}, {{kDelta}, {kMean}}, FailsOnEight), std::runtime_error);
}

// --- what is selected

TEST_F(Table, TakesTheSelectedBandsAndMeasuresInTheirOrder) {
    for (unsigned i = 0; i < 8; ++i) {
        manager.GetBand(i).selected = i == 0 || i == 3 || i == 7;
        SPECT::GetGlobals().MeasSelected[i] = i == 2 || i == 5;
    }
    const TableChoice choice = SelectedForTable(manager);
    EXPECT_EQ(choice.bands, (std::vector<TableKey>{{0, "Delta"}, {3, "Beta"}, {7, ""}}));
    EXPECT_EQ(choice.measures, (std::vector<TableKey>{{2, "Rel"}, {5, "Peak"}}));
}

TEST_F(Table, MayHaveNothingSelected) {
    for (unsigned i = 0; i < 8; ++i) {
        manager.GetBand(i).selected = false;
        SPECT::GetGlobals().MeasSelected[i] = false;
    }
    EXPECT_TRUE(SelectedForTable(manager).bands.empty());
    EXPECT_TRUE(SelectedForTable(manager).measures.empty());
}

} // namespace
