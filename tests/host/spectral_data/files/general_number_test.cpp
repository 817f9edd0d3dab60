// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/files/general_number.h"

#include "tests/support/comma_numerals.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <utility>

namespace orvanta::spectral {
namespace {

std::string Written(double value) {
    char text[kGeneralWidth];
    return {text, WriteGeneral(text, value)};
}

std::string Printed(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", value);
    return text;
}

TEST(GeneralNumber, HasSixSignificantDigits) {
    const std::pair<double, const char*> cases[] = {
        {0, "0"},
        {-0.0, "-0"},
        {1, "1"},
        {127, "127"},
        {0.5, "0.5"},
        {-2.5, "-2.5"},
        {3.14159265, "3.14159"},
        {2.0 / 3, "0.666667"},
        {123456, "123456"},
        {123456.4, "123456"},
        {1234567, "1.23457e+06"},
        {100000, "100000"},
        {1000000, "1e+06"},
        {0.0001, "0.0001"},
        {0.00012345678, "0.000123457"},
        {0.00001, "1e-05"},
        {0.0000234567891, "2.34568e-05"},
        {6.02214076e23, "6.02214e+23"},
        {1.602176634e-19, "1.60218e-19"},
        {-2.2250738585072014e-308, "-2.22507e-308"},
        {1.7976931348623157e308, "1.79769e+308"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(Written(value), text);
    }
}

TEST(GeneralNumber, RoundsHalvesToEven) {
    // These halves are exact in binary.
    EXPECT_EQ(Written(100000.5), "100000");
    EXPECT_EQ(Written(100001.5), "100002");
    EXPECT_EQ(Written(10000.25), "10000.2");
    EXPECT_EQ(Written(10000.75), "10000.8");
    EXPECT_EQ(Written(1000000.0 + 5), "1e+06");
    EXPECT_EQ(Written(1000000.0 + 15), "1.00002e+06");
}

TEST(GeneralNumber, GainsADigitByRounding) {
    EXPECT_EQ(Written(9.999996), "10");
    EXPECT_EQ(Written(9.999994), "9.99999");
    EXPECT_EQ(Written(999999.6), "1e+06");
    EXPECT_EQ(Written(0.00009999996), "0.0001");
}

TEST(GeneralNumber, OfWhatIsNotFiniteIsNotAvailable) {
    EXPECT_EQ(Written(std::nan("")), "n/a");
    EXPECT_EQ(Written(std::numeric_limits<double>::infinity()), "n/a");
    EXPECT_EQ(Written(-std::numeric_limits<double>::infinity()), "n/a");
}

TEST(GeneralNumber, IsWhatTheCLibraryPrintsForEveryPowerOfTenAndItsNeighbours) {
    for (int exponent = -323; exponent <= 308; ++exponent) {
        const double power = std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr);
        double below = power, above = power;
        for (int step = 0; step < 40; ++step) {
            ASSERT_EQ(Written(below), Printed(below));
            ASSERT_EQ(Written(above), Printed(above));
            below = std::nextafter(below, -1.0);
            above = std::nextafter(above, std::numeric_limits<double>::infinity());
        }
    }
}

TEST(GeneralNumber, IsWhatTheCLibraryPrintsForDoublesAndFloatsOfAllSizes) {
    std::mt19937_64 random(20240607);
    for (int i = 0; i < 200'000; ++i) {
        const std::uint64_t bits = random();
        for (const double value :
             {std::bit_cast<double>(bits), double{std::bit_cast<float>(static_cast<std::uint32_t>(bits))}}) {
            if (std::isfinite(value)) {
                ASSERT_EQ(Written(value), Printed(value));
            }
        }
    }
}

TEST(GeneralNumber, IsWhatTheCLibraryPrintsForNumbersOnAndBesideHalves) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 200'000; ++i) {
        const double digits = 100'000 + static_cast<double>(random() % 900'000) + 0.5;
        const double scale = std::pow(10.0, static_cast<double>(random() % 30) - 20);
        for (const double value : {digits, digits * scale, digits / scale}) {
            ASSERT_EQ(Written(value), Printed(value));
        }
    }
}

TEST(GeneralNumber, HasAPointWhereTheUserWritesAComma) {
    const test::CommaNumerals comma;
    EXPECT_EQ(Written(0.25), "0.25");
    EXPECT_EQ(Written(1e-300), "1e-300");
}

} // namespace
} // namespace orvanta::spectral
