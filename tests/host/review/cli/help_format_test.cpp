// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/help_format.h"

#include <gtest/gtest.h>

namespace orvanta::cli {
namespace {

TEST(WrappedHelp, BreaksParagraphsAtBlanks) {
    EXPECT_EQ(Wrapped("one two three four", 9), "one two\nthree\nfour\n");
}

TEST(WrappedHelp, KeepsLinesThatFit) {
    EXPECT_EQ(Wrapped("one two\n\nthree", 9), "one two\n\nthree\n");
}

TEST(WrappedHelp, LeavesTablesAndLongWordsWhole) {
    EXPECT_EQ(Wrapped("  key=value   what it is", 9), "  key=value   what it is\n");
    EXPECT_EQ(Wrapped("abcdefghijklmn", 9), "abcdefghijklmn\n");
}

TEST(WrappedHelp, IsNothingForNothing) {
    EXPECT_EQ(Wrapped("", 9), "");
}

} // namespace
} // namespace orvanta::cli
