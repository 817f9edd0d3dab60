// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/files/general_number.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace orvanta::spectral {

namespace {

constexpr int kDigits = 6;
constexpr double kLowest = 1e5, kBehindHighest = 1e6; // of the digits, taken as an integer
constexpr int kExactPowers = 23;                      // 10^22 is the last that a double holds exactly

constexpr std::array<double, kExactPowers> kPowerOfTen = [] {
    std::array<double, kExactPowers> powers{};
    double power = 1;
    for (double& entry : powers) {
        entry = power;
        power *= 10;
    }
    return powers;
}();

/// value · 10^exponent, rounded once.
double Scaled(double value, int exponent) {
    return exponent >= 0 ? value * kPowerOfTen[static_cast<std::size_t>(exponent)]
                         : value / kPowerOfTen[static_cast<std::size_t>(-exponent)];
}

char* WriteByLibrary(char* out, double value) {
    return std::to_chars(out, out + kGeneralWidth, value, std::chars_format::general, kDigits).ptr;
}

/// d.ddd times a power of ten, for numbers that are too large or too small to be written out.
char* WriteScientific(char* out, const char* digits, int count, int exponent) {
    *out++ = digits[0];
    if (count > 1) {
        *out++ = '.';
        out = std::copy(digits + 1, digits + count, out);
    }
    *out++ = 'e';
    *out++ = exponent < 0 ? '-' : '+';
    const int size = std::abs(exponent);
    *out++ = static_cast<char>('0' + size / 10);
    *out++ = static_cast<char>('0' + size % 10);
    return out;
}

/// \param exponent place of the first digit: 0 for the ones, -1 for the tenths
char* WriteFixed(char* out, const char* digits, int count, int exponent) {
    if (exponent < 0) {
        *out++ = '0';
        *out++ = '.';
        out = std::fill_n(out, -exponent - 1, '0');
        return std::copy(digits, digits + count, out);
    }
    const int whole = exponent + 1;
    if (count <= whole) {
        return std::fill_n(std::copy(digits, digits + count, out), whole - count, '0');
    }
    out = std::copy(digits, digits + whole, out);
    *out++ = '.';
    return std::copy(digits + whole, digits + count, out);
}

} // namespace

char* WriteGeneral(char* out, double value) {
    if (!std::isfinite(value)) {
        constexpr std::string_view kNotAvailable = "n/a";
        return std::copy(kNotAvailable.begin(), kNotAvailable.end(), out);
    }
    // Within these bounds the power of ten that makes an integer of the digits is exact.
    constexpr double kSmall = 1e-16, kLarge = 1e26;
    if (!(value >= kSmall && value < kLarge)) {
        return WriteByLibrary(out, value);
    }
    // floor(log10(value)), or one less: 1233/4096 is just below log10(2).
    const int binary = static_cast<int>(std::bit_cast<std::uint64_t>(value) >> 52) - 1023;
    int exponent = (binary * 1233) >> 12;
    double scaled = Scaled(value, kDigits - 1 - exponent);
    if (scaled >= kBehindHighest) {
        ++exponent;
        scaled = Scaled(value, kDigits - 1 - exponent);
    }
    // One rounding has moved it by less than 1e-10. Where that could change the last digit, or the number of
    // digits, exact arithmetic decides.
    constexpr double kUnsure = 1e-9;
    auto integer = static_cast<std::uint32_t>(scaled);
    const double rest = scaled - integer;
    if (std::fabs(rest - 0.5) < kUnsure || scaled < kLowest) {
        return WriteByLibrary(out, value);
    }
    integer += rest > 0.5;
    if (integer == static_cast<std::uint32_t>(kBehindHighest)) {
        integer = static_cast<std::uint32_t>(kLowest);
        ++exponent;
    }
    char digits[kDigits];
    for (int i = kDigits; i-- > 0; integer /= 10) {
        digits[i] = static_cast<char>('0' + integer % 10);
    }
    int count = kDigits;
    while (count > 1 && digits[count - 1] == '0') {
        --count;
    }
    constexpr int kLowestFixed = -4;
    return exponent < kLowestFixed || exponent >= kDigits ? WriteScientific(out, digits, count, exponent)
                                                          : WriteFixed(out, digits, count, exponent);
}

} // namespace orvanta::spectral
