// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/cut_text.h"

#include <gtest/gtest.h>

namespace {

TEST(CutText, KeepsWhatFits) {
    EXPECT_EQ(owl::CutAt("abc", 3), "abc");
    EXPECT_EQ(owl::CutAt("", 0), "");
}

TEST(CutText, CutsBeforeTheFirstCharacterThatDoesNotFit) {
    EXPECT_EQ(owl::CutAt("abcd", 3), "abc");
    EXPECT_EQ(owl::CutAt("aµV", 2), "a"); // µ takes two bytes
    EXPECT_EQ(owl::CutAt("aµV", 3), "aµ");
    EXPECT_EQ(owl::CutAt("µ", 1), "");
}

} // namespace
