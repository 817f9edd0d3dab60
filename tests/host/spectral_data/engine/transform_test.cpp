// SPDX-License-Identifier: GPL-3.0-or-later
// The transform by itself, on every instruction set that this machine has.
#include "host/spectral_data/engine/kernel/transform.h"

#include "tests/host/spectral_data/engine/engine_cases.h"

#include <fftw3.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>
#include <set>
#include <vector>

namespace orvanta::spectral {
namespace {

using Spectrum = std::vector<std::complex<double>>;

/// X[0 … p/2] of one sequence in each lane; lanes[l][i] = sample i. Taper 1, mean 0.
template <class T>
std::vector<Spectrum> TransformLanes(const std::vector<std::vector<double>>& sequences,
                                     std::uint32_t padded) {
    const std::size_t lanes = Lanes<T>();
    const std::size_t window = sequences[0].size();
    const std::size_t bins = padded / 2 + 1;
    const auto plan = PlanFor<T>(padded);
    AlignedArray<T> samples(window * lanes), mean(2 * lanes), taper(window), scale(lanes),
        work(padded * lanes), power(bins * lanes), spectrum(2 * bins * lanes);
    for (std::size_t i = 0; i < window; ++i) {
        taper[i] = 1;
        for (std::size_t l = 0; l < lanes; ++l) {
            samples[i * lanes + l] = static_cast<T>(sequences[l % sequences.size()][i]);
        }
    }
    for (std::size_t l = 0; l < lanes; ++l) {
        scale[l] = static_cast<T>(0.5);
    }
    Transform(TransformJob<T>{plan.get(), samples.data(), mean.data(), taper.data(), window, bins,
                              scale.data(), work.data(), power.data(), spectrum.data()});
    std::vector<Spectrum> result(lanes, Spectrum(bins));
    for (std::size_t l = 0; l < lanes; ++l) {
        for (std::size_t k = 0; k < bins; ++k) {
            const std::complex<double> x(spectrum[2 * k * lanes + l], spectrum[(2 * k + 1) * lanes + l]);
            EXPECT_NEAR(power[k * lanes + l], std::norm(x), 1e-6 * std::norm(x));
            // The ends carry √½ instead of 1, for a one-sided density.
            result[l][k] = k == 0 || k == bins - 1 ? x * std::numbers::sqrt2 : x;
        }
    }
    return result;
}

std::vector<double> Noise(std::size_t count, unsigned seed) {
    std::mt19937 random(seed);
    std::normal_distribution<double> normal;
    std::vector<double> values(count);
    for (double& value : values) {
        // Exact in float, so that both precisions transform the same numbers.
        value = static_cast<float>(normal(random));
    }
    return values;
}

Spectrum Fftw(std::vector<double> sequence, std::uint32_t padded) {
    sequence.resize(padded);
    Spectrum out(padded / 2 + 1);
    fftw_plan plan = fftw_plan_dft_r2c_1d(static_cast<int>(padded), sequence.data(),
                                          reinterpret_cast<fftw_complex*>(out.data()), FFTW_ESTIMATE);
    fftw_execute(plan);
    fftw_destroy_plan(plan);
    return out;
}

/// Root of the summed squared difference over that of the reference.
double Distance(const Spectrum& a, const Spectrum& reference) {
    double difference = 0;
    double size = 0;
    for (std::size_t k = 0; k < a.size(); ++k) {
        difference += std::norm(a[k] - reference[k]);
        size += std::norm(reference[k]);
    }
    return std::sqrt(difference / size);
}

template <class T>
void ExpectEqualToFftw(double tolerance) {
    for (std::uint32_t padded = 2; padded <= 16384; padded *= 2) {
        const std::vector<std::vector<double>> sequences{Noise(padded, padded), Noise(padded, padded + 1)};
        const auto spectra = TransformLanes<T>(sequences, padded);
        EXPECT_LT(Distance(spectra.front(), Fftw(sequences[0], padded)), tolerance) << padded;
        EXPECT_LT(Distance(spectra.back(), Fftw(sequences[(spectra.size() - 1) % 2], padded)), tolerance)
            << padded;
    }
}

TEST(Transform, EqualsFftwInFloatOnEveryTarget) {
    OnEveryTarget([] { ExpectEqualToFftw<float>(3e-7); });
}

TEST(Transform, EqualsFftwInDoubleOnEveryTarget) {
    OnEveryTarget([] { ExpectEqualToFftw<double>(1e-15); });
}

TEST(Transform, EqualsFftwForAMillionSamples) {
    const std::vector<std::vector<double>> sequences{Noise(1U << 20, 1)};
    EXPECT_LT(Distance(TransformLanes<float>(sequences, 1U << 20)[0], Fftw(sequences[0], 1U << 20)), 6e-7);
}

TEST(Transform, PadsAShortWindowWithZeros) {
    OnEveryTarget([] {
        for (const std::uint32_t window : {1U, 3U, 5U, 100U, 129U, 1000U}) {
            const std::uint32_t padded = std::max(2U, std::bit_ceil(window));
            const auto noise = Noise(window, window);
            EXPECT_LT(Distance(TransformLanes<double>({noise}, padded)[0], Fftw(noise, padded)), 1e-15)
                << window;
        }
    });
}

TEST(Transform, SpreadsAnImpulseEvenlyWithALinearPhase) {
    std::vector<double> impulse(64);
    impulse[3] = 1;
    const Spectrum x = TransformLanes<double>({impulse}, 64)[0];
    for (std::size_t k = 0; k < x.size(); ++k) {
        const double angle = -2 * std::numbers::pi * 3 * static_cast<double>(k) / 64;
        EXPECT_NEAR(x[k].real(), std::cos(angle), 3e-15) << k;
        EXPECT_NEAR(x[k].imag(), std::sin(angle), 3e-15) << k;
    }
}

TEST(Transform, IsLinear) {
    const auto a = Noise(256, 1), b = Noise(256, 2);
    std::vector<double> both(256);
    for (std::size_t i = 0; i < both.size(); ++i) {
        both[i] = 2 * a[i] - 3 * b[i];
    }
    const auto xa = TransformLanes<double>({a}, 256)[0], xb = TransformLanes<double>({b}, 256)[0];
    Spectrum sum(xa.size());
    for (std::size_t k = 0; k < sum.size(); ++k) {
        sum[k] = 2.0 * xa[k] - 3.0 * xb[k];
    }
    EXPECT_LT(Distance(TransformLanes<double>({both}, 256)[0], sum), 1e-15);
}

TEST(Transform, TurnsAShiftInTimeIntoATurnOfPhase) {
    const auto a = Noise(128, 5);
    std::vector<double> shifted(128);
    for (std::size_t i = 0; i < 128; ++i) {
        shifted[(i + 1) % 128] = a[i];
    }
    Spectrum turned = TransformLanes<double>({a}, 128)[0];
    for (std::size_t k = 0; k < turned.size(); ++k) {
        turned[k] *= std::polar(1.0, -2 * std::numbers::pi * static_cast<double>(k) / 128);
    }
    EXPECT_LT(Distance(TransformLanes<double>({shifted}, 128)[0], turned), 1e-15);
}

TEST(Transform, KeepsTheEnergy) {
    const auto a = Noise(512, 9);
    double time = 0;
    for (const double value : a) {
        time += value * value;
    }
    const Spectrum x = TransformLanes<double>({a}, 512)[0];
    double frequency = 0;
    for (std::size_t k = 0; k < x.size(); ++k) {
        frequency += (k == 0 || k == 256 ? 1 : 2) * std::norm(x[k]);
    }
    EXPECT_NEAR(frequency / 512, time, 1e-12 * time);
}

TEST(Transform, KeepsLanesApart) {
    std::vector<std::vector<double>> sequences;
    for (unsigned lane = 0; lane < Lanes<float>(); ++lane) {
        sequences.push_back(Noise(64, lane));
    }
    const auto all = TransformLanes<float>(sequences, 64);
    for (std::size_t lane = 0; lane < sequences.size(); ++lane) {
        EXPECT_EQ(all[lane], TransformLanes<float>({sequences[lane]}, 64)[0]) << lane;
    }
}

TEST(FftPlan, RefusesALengthThatIsNoPowerOfTwo) {
    EXPECT_THROW(PlanFor<float>(0), std::invalid_argument);
    EXPECT_THROW(PlanFor<float>(1), std::invalid_argument);
    EXPECT_THROW(PlanFor<float>(96), std::invalid_argument);
}

TEST(Transform, TakesTheWidestLanesOfThisMachine) {
    std::set<std::size_t> widths;
    OnEveryTarget([&] { widths.insert(Lanes<float>()); });
    EXPECT_EQ(Lanes<float>(), *widths.rbegin());
}

} // namespace
} // namespace orvanta::spectral
