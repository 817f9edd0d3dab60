// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/number_locale.h"
#include "tests/support/comma_numerals.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

namespace {

std::string Printed(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

TEST(TempNumEngLocale, GivesEnglishNumeralsWhileItLives) {
    const orvanta::test::CommaNumerals user;
    ASSERT_EQ(Printed(2.5), "2,5");
    {
        const TempNumEngLocale english;
        EXPECT_EQ(Printed(2.5), "2.5");
        EXPECT_EQ(std::strtod("2.5", nullptr), 2.5);
    }
    EXPECT_EQ(Printed(2.5), "2,5");
    EXPECT_EQ(std::strtod("2,5", nullptr), 2.5);
}

TEST(TempNumEngLocale, MayBeNested) {
    const orvanta::test::CommaNumerals user;
    const TempNumEngLocale outer;
    {
        const TempNumEngLocale inner;
        EXPECT_EQ(Printed(2.5), "2.5");
    }
    EXPECT_EQ(Printed(2.5), "2.5");
}

TEST(TempNumEngLocale, LeavesOtherThreadsAlone) {
    const orvanta::test::CommaNumerals user;
    const TempNumEngLocale english;
    std::string other;
    std::thread([&] { other = Printed(2.5); }).join();
    EXPECT_EQ(other, "2,5");
}

} // namespace
