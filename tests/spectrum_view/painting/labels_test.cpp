// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/labels.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta::spectrum_view;

TEST(TraceLabel, NamesTheUnitWhenThereIsOne) {
    EXPECT_EQ(TraceLabel("Fp1", "µV²/Hz"), "Fp1 (µV²/Hz) ");
    EXPECT_EQ(TraceLabel("Fp1-F3", ""), "Fp1-F3");
}

TEST(ViewTitle, NamesRecordingAnalysisAndProcessedTime) {
    EXPECT_EQ(ViewTitle("Mars", "Rest", "118 epochs", std::nullopt), "Mars (Rest) 118 epochs");
}

TEST(ViewTitle, OfAComparisonEndsWithItsThreshold) {
    EXPECT_EQ(ViewTitle("Mars", "Rest", "118 epochs", "0.05"), "Mars (Rest) 118 epochs p-scale: 0.05");
}

} // namespace
