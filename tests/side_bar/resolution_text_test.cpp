// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/resolution_text.h"
#include "tests/side_bar/settings_case.h"

#include <gtest/gtest.h>

namespace {

using orvanta::side_bar::ResolutionTexts;
using orvanta::side_bar::ResolutionTextsOf;
using orvanta::side_bar::WindowLength;
using orvanta::side_bar::WindowLengthOf;
using orvanta::test::NumeralsOf;

TEST(ResolutionText, TellsSamplesResolutionAndPadding) {
    const NumeralsOf english(QLocale::English);
    const struct {
        double seconds;
        std::uint32_t rate;
        const char *samples, *resolution, *padding;
    } cases[] = {
        {0.5, 500, "250  (256)", "1.95000", "6  (2%)"},
        {1.0, 500, "500  (512)", "0.97700", "12  (2%)"},
        {2.0, 512, "1024  (1024)", "0.50000", "0  (0%)"},
        {3.0, 500, "1500  (2048)", "0.24400", "548  (26%)"},
        {4.0, 200, "800  (1024)", "0.19500", "224  (21%)"},
        {16.0, 1000, "16000  (16384)", "0.06100", "384  (2%)"},
        {1.0, 9, "9  (16)", "0.56300", "7  (43%)"},
        {0.35, 100, "35  (64)", "1.56000", "29  (45%)"},
        {1.0, 1, "1  (1)", "1.00000", "0  (0%)"},
        {0.001, 500, "1  (1)", "500.00000", "0  (0%)"},
        {0.0009, 500, "0  (1)", "***", "1  (100%)"},
        {0.0, 500, "0  (1)", "***", "1  (100%)"},
        {-2.0, 500, "-999  (1)", "***", "1000  (100000%)"},
    };
    for (const auto& given : cases) {
        const ResolutionTexts texts = ResolutionTextsOf(given.seconds, given.rate);
        EXPECT_EQ(texts.samples, given.samples);
        EXPECT_EQ(texts.resolution, given.resolution);
        EXPECT_EQ(texts.padding, given.padding);
    }
}

TEST(ResolutionText, KeepsLengthsBeyondAllMeasureWithinWholeNumbers) {
    constexpr std::int64_t kMost = 9007199254740992;
    EXPECT_EQ(WindowLengthOf(1e300, 500), (WindowLength{kMost, kMost}));
    EXPECT_EQ(WindowLengthOf(-1e300, 500), (WindowLength{-kMost, 1}));
}

} // namespace
