// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/sensors/positions.h"

#include "host/signal_base/recording.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <set>
#include <tuple>
#include <utility>

namespace orvanta::signal {
namespace {

HeadPosition At(const char* name) {
    const ElectInfo info = StandardPosition(name);
    EXPECT_TRUE(info.Known) << name;
    return info.Position;
}

double DegreesBetween(const HeadPosition& a, const HeadPosition& b) {
    return std::acos(a.x * b.x + a.y * b.y + a.z * b.z) * 180 / std::numbers::pi;
}

void ExpectNear(const HeadPosition& a, const HeadPosition& b) {
    EXPECT_NEAR(a.x, b.x, 1e-12);
    EXPECT_NEAR(a.y, b.y, 1e-12);
    EXPECT_NEAR(a.z, b.z, 1e-12);
}

TEST(StandardPositions, CzIsOnTop) {
    ExpectNear(At("Cz"), {0, 0, 1});
}

TEST(StandardPositions, TheRingIsTheEquator) {
    ExpectNear(At("Fpz"), {0, 1, 0});
    ExpectNear(At("T8"), {1, 0, 0});
    ExpectNear(At("Oz"), {0, -1, 0});
    ExpectNear(At("T7"), {-1, 0, 0});
}

TEST(StandardPositions, TheRingIsDividedInStepsOfEighteenDegrees) {
    // sin and cos of 18, 54, 126 and 162 degrees.
    ExpectNear(At("Fp1"), {-0.30901699437494745, 0.9510565162951535, 0});
    ExpectNear(At("F8"), {0.8090169943749475, 0.5877852522924731, 0});
    ExpectNear(At("P7"), {-0.8090169943749475, -0.5877852522924731, 0});
    ExpectNear(At("O2"), {0.30901699437494745, -0.9510565162951535, 0});
}

TEST(StandardPositions, C3LiesMidwayBetweenCzAndT7) {
    ExpectNear(At("C3"), {-std::numbers::sqrt2 / 2, 0, std::numbers::sqrt2 / 2});
}

TEST(StandardPositions, TheMidlineGoesInStepsOfTenPercent) {
    const char* names[] = {"Nz", "Fpz", "AFz", "Fz", "FCz", "Cz", "CPz", "Pz", "POz", "Oz", "Iz"};
    for (std::size_t i = 0; i + 1 < std::size(names); ++i) {
        EXPECT_NEAR(DegreesBetween(At(names[i]), At(names[i + 1])), 22.5, 1e-9) << names[i];
    }
}

TEST(StandardPositions, F3LiesMidwayBetweenF7AndFz) {
    EXPECT_NEAR(DegreesBetween(At("F3"), At("F7")), DegreesBetween(At("F3"), At("Fz")), 1e-9);
}

TEST(StandardPositions, NineAndTenLieBelowTheRing) {
    EXPECT_NEAR(DegreesBetween(At("T9"), At("T7")), 22.5, 1e-9);
    EXPECT_NEAR(DegreesBetween(At("P10h"), At("P8")), 11.25, 1e-9);
    EXPECT_LT(At("T9").z, 0);
}

TEST(StandardPositions, AllLieOnTheSphereAtPlacesOfTheirOwn) {
    std::set<std::tuple<long, long, long>> places;
    std::size_t renamed = 0;
    for (const auto& [key, info] : StandardPositions()) {
        const HeadPosition& p = info.Position;
        EXPECT_NEAR(std::hypot(p.x, p.y, p.z), 1, 1e-12) << info.Name;
        const bool fresh =
            places.emplace(std::lround(p.x * 1e6), std::lround(p.y * 1e6), std::lround(p.z * 1e6)).second;
        renamed += fresh ? 0 : 1;
    }
    EXPECT_EQ(renamed, 4U); // T3, T4, T5, T6
}

TEST(StandardPositions, EvenNumbersMirrorOddOnes) {
    const std::pair<const char*, const char*> pairs[] = {{"Fp1", "Fp2"}, {"AFF5h", "AFF6h"}, {"PO9", "PO10"}};
    for (const auto& [odd, even] : pairs) {
        const HeadPosition left = At(odd);
        ExpectNear(At(even), {-left.x, left.y, left.z});
    }
}

TEST(StandardPositions, OldNamesLieAtTheNewOnes) {
    ExpectNear(At("T3"), At("T7"));
    ExpectNear(At("T4"), At("T8"));
    ExpectNear(At("T5"), At("P7"));
    ExpectNear(At("T6"), At("P8"));
}

TEST(StandardPositions, NamesAreReadInAnyCaseAndWrittenInOne) {
    EXPECT_EQ(StandardPosition("FP1").Name, "Fp1");
    EXPECT_EQ(StandardPosition("afF5H").Name, "AFF5h");
    EXPECT_EQ(StandardPosition("oiZ").Name, "OIz");
    EXPECT_EQ(StandardPosition("t3").Name, "T3");
}

TEST(StandardPositions, HoldExactZerosWithoutASign) {
    for (const char* name : {"Fpz", "Fz", "Cz", "Pz", "Oz", "T7", "T8"}) {
        const HeadPosition position = StandardPosition(name).Position;
        for (const double coordinate : {position.x, position.y, position.z}) {
            EXPECT_TRUE(std::abs(coordinate) > 1e-9 || (coordinate == 0 && !std::signbit(coordinate)))
                << name;
        }
    }
}

TEST(StandardPositions, OtherNamesAreUnknown) {
    EXPECT_FALSE(StandardPosition("ECG").Known);
    EXPECT_FALSE(StandardPosition("").Known);
    EXPECT_FALSE(StandardPosition("F11").Known);
    EXPECT_EQ(StandardPosition("X1").Name, "X1");
}

} // namespace
} // namespace orvanta::signal
