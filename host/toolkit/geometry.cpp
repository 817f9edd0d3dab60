// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/geometry.h"

#include <limits>

int MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0) {
        return -1;
    }
    const std::int64_t product = static_cast<std::int64_t>(number) * numerator;
    const std::int64_t divisor = denominator;
    const bool negative = (product < 0) != (divisor < 0);
    const std::int64_t half = (divisor < 0 ? -divisor : divisor) / 2;
    const std::int64_t size =
        ((product < 0 ? -product : product) + half) / (divisor < 0 ? -divisor : divisor);
    const std::int64_t result = negative ? -size : size;
    const bool fits = result >= std::numeric_limits<int>::min() && result <= std::numeric_limits<int>::max();
    return fits ? static_cast<int>(result) : -1;
}
