// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording/file_format.h"

#include <gtest/gtest.h>

namespace orvanta::signal {
namespace {

TEST(FileFormat, ContentDecidesBeforeTheName) {
    EXPECT_EQ(FormatOf("0       X X X X", "a.eeg"), FileFormat::Edf);
    EXPECT_EQ(FormatOf("\xFF"
                       "BIOSEMI",
                       "a.dat"),
              FileFormat::Edf);
    EXPECT_EQ(FormatOf("Brain Vision Data Exchange Header File Version 1.0\r\n", "a.txt"),
              FileFormat::BrainVision);
    EXPECT_EQ(FormatOf("BrainVision Data Exchange Marker File, Version 2.0\n", "a.edf"),
              FileFormat::BrainVision);
}

TEST(FileFormat, TheNameDecidesWhereContentSaysNothing) {
    EXPECT_EQ(FormatOf("rubbish", "a.EDF"), FileFormat::Edf);
    EXPECT_EQ(FormatOf("", "a.bdf"), FileFormat::Edf);
    EXPECT_EQ(FormatOf("\x01\x02", "dir.edf/a.eeg"), FileFormat::BrainVision);
}

TEST(FileFormat, OthersAreUnknown) {
    EXPECT_EQ(FormatOf("%PDF-1.7", "a.pdf"), FileFormat::Unknown);
    EXPECT_EQ(FormatOf("", ""), FileFormat::Unknown);
    EXPECT_EQ(FormatOf("0      ", "short"), FileFormat::Unknown);
}

} // namespace
} // namespace orvanta::signal
