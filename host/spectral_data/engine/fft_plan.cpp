// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/fft_plan.h"

#include <bit>
#include <cmath>
#include <map>
#include <mutex>
#include <numbers>
#include <stdexcept>
#include <string>

namespace orvanta::spectral {

namespace {

/// exp(−2πi·numerator/denominator), denominator a power of two; folded to the first eighth of the circle,
/// where sine and cosine are accurate to the last place.
std::array<double, 2> UnitRoot(std::uint64_t numerator, std::uint64_t denominator) {
    numerator &= denominator - 1;
    const std::uint64_t eighths = numerator * 8 / denominator;
    const std::uint64_t octant = (eighths + 1) / 2 * 2;
    // The angle is octant/8 turns plus a remainder within an eighth of a turn to either side.
    const double remainder = 2 * std::numbers::pi *
                             (static_cast<double>(static_cast<std::int64_t>(numerator * 8) -
                                                  static_cast<std::int64_t>(octant * denominator)) /
                              (8 * static_cast<double>(denominator)));
    const double c = std::cos(remainder);
    const double s = -std::sin(remainder);
    switch (octant / 2 % 4) {
    case 0:
        return {c, s};
    case 1:
        return {s, -c};
    case 2:
        return {-c, -s};
    default:
        return {-s, c};
    }
}

} // namespace

template <class T>
FftPlan<T>::FftPlan(std::uint32_t padded) {
    if (padded < 2 || padded > 0x80000000U || !std::has_single_bit(padded)) {
        throw std::invalid_argument("a transform needs a length that is a power of two, not " +
                                    std::to_string(padded));
    }
    length = padded / 2;
    log2 = static_cast<unsigned>(std::countr_zero(length));

    for (unsigned l = log2; l > 0; l -= FirstRadixLog2(l)) {
        const std::uint64_t n = std::uint64_t{1} << l;
        const std::uint64_t radix = std::uint64_t{1} << FirstRadixLog2(l);
        AlignedArray<T>& table = twiddles[l] = AlignedArray<T>(2 * (n / radix) * (radix - 1));
        std::size_t at = 0;
        for (std::uint64_t j = 0; j < n / radix; ++j) {
            for (std::uint64_t q = 1; q < radix; ++q) {
                const auto root = UnitRoot(j * q, n);
                table[at++] = static_cast<T>(root[0]);
                table[at++] = static_cast<T>(root[1]);
            }
        }
    }

    split = AlignedArray<T>(2 * (std::size_t{length} / 2 + 1));
    for (std::uint32_t k = 0; k <= length / 2; ++k) {
        const auto root = UnitRoot(k, padded);
        split[2 * std::size_t{k}] = static_cast<T>(root[0]);
        split[2 * std::size_t{k} + 1] = static_cast<T>(root[1]);
    }

    position = AlignedArray<std::uint32_t>(length);
    for (std::uint32_t k = 0; k < length; ++k) {
        std::uint32_t rest = k;
        std::uint32_t at = 0;
        for (unsigned l = log2; l > 0; l -= FirstRadixLog2(l)) {
            const unsigned r = FirstRadixLog2(l);
            at += (rest & ((1U << r) - 1)) << (l - r);
            rest >>= r;
        }
        position[k] = at;
    }
}

template <class T>
std::shared_ptr<const FftPlan<T>> PlanFor(std::uint32_t padded) {
    static std::mutex mutex;
    static std::map<std::uint32_t, std::shared_ptr<const FftPlan<T>>> plans;
    const std::lock_guard lock(mutex);
    auto& plan = plans[padded];
    if (!plan) {
        plan = std::make_shared<const FftPlan<T>>(padded);
    }
    return plan;
}

template struct FftPlan<float>;
template struct FftPlan<double>;
template std::shared_ptr<const FftPlan<float>> PlanFor<float>(std::uint32_t);
template std::shared_ptr<const FftPlan<double>> PlanFor<double>(std::uint32_t);

} // namespace orvanta::spectral
