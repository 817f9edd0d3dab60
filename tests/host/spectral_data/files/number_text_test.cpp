// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/files/number_text.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace orvanta::spectral {
namespace {

TEST(NumberText, IsTheShortestThatReadsBack) {
    EXPECT_EQ(NumberText(0), "0");
    EXPECT_EQ(NumberText(-0.5), "-0.5");
    EXPECT_EQ(NumberText(0.1), "0.1");
    EXPECT_EQ(NumberText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(NumberText(1.0 / 3), "0.3333333333333333");
    EXPECT_EQ(NumberText(123456789), "123456789");
    EXPECT_EQ(NumberText(-2.2250738585072014e-308), "-2.2250738585072014e-308");
    EXPECT_EQ(NumberText(std::numeric_limits<double>::max()), "1.7976931348623157e+308");
}

TEST(NumberText, OfWhatIsNotFiniteIsNotAvailable) {
    EXPECT_EQ(NumberText(std::nan("")), "n/a");
    EXPECT_EQ(NumberText(std::numeric_limits<double>::infinity()), "n/a");
    EXPECT_EQ(NumberText(-std::numeric_limits<double>::infinity()), "n/a");
}

} // namespace
} // namespace orvanta::spectral
