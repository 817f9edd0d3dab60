// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/demo_noise.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace orvanta::cli {

namespace {

constexpr std::uint64_t kIncrement = 0x9E3779B97F4A7C15;
constexpr double kRhythmHz = 10;
constexpr double kRhythmWidthHz = 1;

std::uint64_t Mix(std::uint64_t value) {
    value = (value ^ value >> 30) * 0xBF58476D1CE4E5B9;
    value = (value ^ value >> 27) * 0x94D049BB133111EB;
    return value ^ value >> 31;
}

/// Cosine of 0 to 1 by its series; the library's may differ in the last bit from machine to machine.
double Cosine(double angle) {
    double term = 1;
    double sum = 1;
    for (int n = 2; n <= 24; n += 2) {
        term *= -angle * angle / (n * (n - 1));
        sum += term;
    }
    return sum;
}

} // namespace

RandomStream::RandomStream(std::uint64_t seed, std::uint64_t stream)
    : state_(Mix(seed) ^ Mix((stream + 1) * kIncrement)) {}

std::uint64_t RandomStream::Next() {
    state_ += kIncrement;
    return Mix(state_);
}

double RandomStream::Uniform() {
    return static_cast<double>(Next() >> 11) / static_cast<double>(std::uint64_t{1} << 53);
}

double RandomStream::Noise() {
    const std::uint64_t bits = Next();
    const std::uint64_t sum = (bits & 0xFFFF) + (bits >> 16 & 0xFFFF) + (bits >> 32 & 0xFFFF) + (bits >> 48);
    // Four even numbers of variance 1/12 each around their mean of 2.
    return (static_cast<double>(sum) / 65535.0 - 2) * std::numbers::sqrt3;
}

PinkNoise::PinkNoise(unsigned rate_hz, RandomStream random)
    : random_(random), scale_(std::sqrt(3.5 * rate_hz)) {
    double corner = 0.5;
    for (double& keep : keep_) {
        const double warped = std::numbers::pi * corner / rate_hz;
        keep = warped < 1 ? (1 - warped) / (1 + warped) : 0;
        corner *= 4;
    }
}

double PinkNoise::Next() {
    // Low-pass filters two octaves apart, each with half of the amplitude of the one below it: their sum
    // falls as the square root of the frequency.
    const double white = random_.Noise() * scale_;
    double sum = 0;
    double share = 1;
    for (std::size_t i = 0; i < kFilters; ++i) {
        last_[i] = keep_[i] * last_[i] + (1 - keep_[i]) * white;
        sum += share * last_[i];
        share *= 0.5;
    }
    return sum;
}

Rhythm::Rhythm(unsigned rate_hz, RandomStream random) : random_(random) {
    const double radius = 1 - std::numbers::pi * kRhythmWidthHz / rate_hz;
    first_ = 2 * radius * Cosine(2 * std::numbers::pi * kRhythmHz / rate_hz);
    second_ = radius * radius;
    // Variance of a second-order autoregressive process driven by variance 1.
    const double sum = 1 + second_;
    scale_ = std::sqrt((1 - second_) * (sum * sum - first_ * first_) / sum);
}

double Rhythm::Next() {
    const double value = first_ * last_ - second_ * lastButOne_ + scale_ * random_.Noise();
    lastButOne_ = last_;
    last_ = value;
    return value;
}

} // namespace orvanta::cli
