// SPDX-License-Identifier: GPL-3.0-or-later
// Noise that is the same on every machine.
#pragma once

#include <array>
#include <cstdint>

namespace orvanta::cli {

/// A stream of random numbers (SplitMix64: Steele, Lea and Flood 2014).
class RandomStream {
public:
    /// Streams of one seed are independent of each other.
    RandomStream(std::uint64_t seed, std::uint64_t stream);

    /// Evenly from [0, 1).
    double Uniform();
    /// Mean 0, variance 1, nearly normal (a sum of four even numbers).
    double Noise();

private:
    std::uint64_t Next();

    std::uint64_t state_;
};

/// Noise whose power falls as 1 / frequency between 0.5 and about 100 Hz, 1 µV²/Hz at 10 Hz (to within 2 dB).
class PinkNoise {
public:
    PinkNoise(unsigned rate_hz, RandomStream random);

    double Next();

private:
    static constexpr std::size_t kFilters = 5;
    RandomStream random_;
    double scale_;
    std::array<double, kFilters> keep_{}; ///< share that a filter keeps of its last value
    std::array<double, kFilters> last_{};
};

/// A rhythm of 10 Hz that waxes and wanes (1 Hz wide at half of its power), variance 1.
class Rhythm {
public:
    Rhythm(unsigned rate_hz, RandomStream random);

    double Next();

private:
    RandomStream random_;
    double first_, second_, scale_; ///< of a resonator
    double last_ = 0, lastButOne_ = 0;
};

} // namespace orvanta::cli
