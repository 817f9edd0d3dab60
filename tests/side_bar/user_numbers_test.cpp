// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/user_numbers.h"
#include "tests/side_bar/settings_case.h"

#include <gtest/gtest.h>

namespace {

using orvanta::side_bar::FixedText;
using orvanta::side_bar::ParseNumber;
using orvanta::test::NumeralsOf;

TEST(UserNumbers, AreRoundedToSignificantDigitsThenPrinted) {
    const NumeralsOf english(QLocale::English);
    const struct {
        double value;
        int significant, decimals;
        const char* text;
    } cases[] = {
        {0.9765625, 3, 5, "0.97700"}, {3, 7, 7, "3.0000000"},     {123.4567891, 7, 7, "123.4568000"},
        {999.6, 3, 5, "1000.00000"},  {12345.6, 3, 1, "12300.0"}, {0, 3, 5, "0.00000"},
        {1e-300, 3, 5, "0.00000"},    {6e-6, 3, 5, "0.00001"},    {1e15, 3, 2, "1000000000000000.00"},
    };
    for (const auto& given : cases) {
        EXPECT_EQ(FixedText(given.value, given.significant, given.decimals), given.text);
    }
}

TEST(UserNumbers, RoundHalvesAwayFromZero) {
    const NumeralsOf english(QLocale::English);
    EXPECT_EQ(FixedText(1.125, 3, 2), "1.13");
    EXPECT_EQ(FixedText(1.375, 3, 2), "1.38");
    EXPECT_EQ(FixedText(1.005, 3, 2), "1.01");
    EXPECT_EQ(FixedText(-1.125, 3, 2), "-1.13");
    EXPECT_EQ(FixedText(0.0001254, 3, 5), "0.00013");
    EXPECT_EQ(FixedText(0.5, 1, 0), "1");
}

TEST(UserNumbers, HaveNoNegativeZero) {
    const NumeralsOf english(QLocale::English);
    EXPECT_EQ(FixedText(-1e-9, 3, 5), "0.00000");
}

TEST(UserNumbers, UseTheUsersDecimalSignAndNoGrouping) {
    const NumeralsOf german(QLocale::German);
    EXPECT_EQ(FixedText(12345.5, 6, 2), "12345,50");
    EXPECT_EQ(ParseNumber("1,5"), 1.5);
    EXPECT_EQ(ParseNumber("1.5"), std::nullopt);
    EXPECT_EQ(ParseNumber("1.000"), std::nullopt);
}

TEST(UserNumbers, AreReadFromTheWholeText) {
    const NumeralsOf english(QLocale::English);
    EXPECT_EQ(ParseNumber("1.5"), 1.5);
    EXPECT_EQ(ParseNumber(" 2 "), 2.0);
    EXPECT_EQ(ParseNumber("-0.25"), -0.25);
    EXPECT_EQ(ParseNumber("1e1"), 10.0);
    for (const char* text : {"", " ", "abc", "1.5 s", "1,5", "1,000", "0x10", "1 2", "nan", "inf", "1e999"}) {
        EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
    }
}

} // namespace
