// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/demo_signal.h"

#include "host/review/cli/demo_labels.h"
#include "host/signal_base/recording.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

namespace orvanta::test {

namespace {

/// All samples of a channel.
std::vector<double> Channel(const cli::DemoParameters& parameters, const std::string& label) {
    cli::DemoSignal demo(parameters);
    const auto index = static_cast<std::size_t>(std::find(demo.Labels().begin(), demo.Labels().end(), label) -
                                                demo.Labels().begin());
    std::vector<double> values;
    std::vector<std::vector<double>> second;
    for (std::uint64_t s = 0; s < demo.Seconds(); ++s) {
        demo.NextSecond(second);
        values.insert(values.end(), second.at(index).begin(), second.at(index).end());
    }
    return values;
}

/// Density in µV²/Hz at a whole frequency, mean over the seconds [first, last) as rectangular epochs.
double Density(const std::vector<double>& values, std::size_t rate, std::size_t first, std::size_t last,
               double hz) {
    double sum = 0;
    for (std::size_t second = first; second < last; ++second) {
        double re = 0;
        double im = 0;
        for (std::size_t i = 0; i < rate; ++i) {
            const double angle =
                2 * std::numbers::pi * hz * static_cast<double>(i) / static_cast<double>(rate);
            re += values[second * rate + i] * std::cos(angle);
            im += values[second * rate + i] * std::sin(angle);
        }
        const auto samples = static_cast<double>(rate);
        sum += 2 * (re * re + im * im) / (samples * samples);
    }
    return sum / static_cast<double>(last - first);
}

std::vector<signal::Annotation> Named(const cli::DemoSignal& demo, const std::string& text) {
    std::vector<signal::Annotation> named;
    std::copy_if(demo.Annotations().begin(), demo.Annotations().end(), std::back_inserter(named),
                 [&](const signal::Annotation& a) { return a.text == text; });
    return named;
}

} // namespace

TEST(DemoSignal, IsTheSameEverywhere) {
    cli::DemoSignal demo({1, 3, 100, 7});
    std::vector<std::vector<double>> second;
    std::uint64_t hash = 14695981039346656037u;
    for (int s = 0; s < 40; ++s) {
        demo.NextSecond(second);
        for (const std::vector<double>& channel : second) {
            for (const double value : channel) {
                hash = (hash ^ static_cast<std::uint64_t>(std::llround(value * 10))) * 1099511628211u;
            }
        }
    }
    EXPECT_EQ(hash, 11800383639062382997u); // the same from GCC and Clang at every optimisation
}

TEST(DemoSignal, DiffersWithTheSeed) {
    EXPECT_NE(Channel({0.1, 1, 64, 1}, "Fp1"), Channel({0.1, 1, 64, 2}, "Fp1"));
}

TEST(DemoSignal, HasStatesOfThirtySecondsInTurn) {
    const cli::DemoSignal demo({1.25, 1, 64, 1});
    const std::vector<signal::Annotation> open = Named(demo, "eyes open");
    const std::vector<signal::Annotation> closed = Named(demo, "eyes closed");
    ASSERT_EQ(open.size(), 2u);
    ASSERT_EQ(closed.size(), 1u);
    EXPECT_EQ(open[0].onset_s, 0);
    EXPECT_EQ(open[0].duration_s, 30);
    EXPECT_EQ(closed[0].onset_s, 30);
    EXPECT_EQ(open[1].onset_s, 60);
    EXPECT_EQ(open[1].duration_s, 15);
}

TEST(DemoSignal, HasARhythmOfTenHertzWithEyesClosedAtTheBackOfTheHead) {
    const cli::DemoParameters parameters{5, 19, 128, 1};
    const std::vector<double> back = Channel(parameters, "O1");
    const double closed = Density(back, 128, 31, 59, 10);
    EXPECT_GT(closed, 20 * Density(back, 128, 1, 29, 10));
    EXPECT_GT(closed, 20 * Density(back, 128, 31, 59, 20));
    EXPECT_GT(closed, 20 * Density(Channel(parameters, "Fp1"), 128, 31, 59, 10));
    EXPECT_NEAR(closed / Density(Channel(parameters, "Pz"), 128, 31, 59, 10), 1, 0.2);
}

TEST(DemoSignal, HasABackgroundThatFallsWithTheFrequency) {
    const std::vector<double> middle = Channel({10, 10, 256, 3}, "Cz");
    const double at2 = Density(middle, 256, 0, 600, 2);
    const double at20 = Density(middle, 256, 0, 600, 20);
    EXPECT_NEAR(std::log10(at2 / at20), 1, 0.25);   // 1/f: a decade of frequency, a decade of power
    EXPECT_NEAR(10 * std::log10(at20 / 0.5), 0, 2); // 1 µV²/Hz at 10 Hz
}

TEST(DemoSignal, HasBlinksAtTheFrontOfTheHeadWithEyesOpen) {
    const cli::DemoParameters parameters{2, 19, 100, 1};
    const std::vector<signal::Annotation> blinks = Named(cli::DemoSignal(parameters), "bad blink");
    ASSERT_GE(blinks.size(), 3u);
    const std::vector<double> front = Channel(parameters, "Fp2");
    const std::vector<double> back = Channel(parameters, "O2");
    for (const signal::Annotation& blink : blinks) {
        EXPECT_EQ(blink.duration_s, 0.4);
        EXPECT_LT(std::fmod(blink.onset_s, 60), 30);
        const auto middle = static_cast<std::size_t>((blink.onset_s + 0.2) * 100);
        EXPECT_GT(front[middle], 70);
        EXPECT_LT(back[middle], 70);
    }
}

TEST(DemoSignal, HasSpotEventsEveryFewSeconds) {
    const std::vector<signal::Annotation> tones = Named(cli::DemoSignal({2, 1, 64, 1}), "tone");
    ASSERT_GE(tones.size(), 19u);
    for (std::size_t i = 0; i < tones.size(); ++i) {
        EXPECT_FALSE(tones[i].duration_s);
        EXPECT_LT(tones[i].onset_s, 120);
        if (i > 0) {
            EXPECT_GE(tones[i].onset_s - tones[i - 1].onset_s, 3);
            EXPECT_LE(tones[i].onset_s - tones[i - 1].onset_s, 6);
        }
    }
}

TEST(DemoSignal, RefusesParametersOutOfRange) {
    EXPECT_THROW(cli::DemoSignal({0, 1, 64, 1}), std::invalid_argument);
    EXPECT_THROW(cli::DemoSignal({std::nan(""), 1, 64, 1}), std::invalid_argument);
    EXPECT_THROW(cli::DemoSignal({1e9, 1, 64, 1}), std::invalid_argument);
    EXPECT_THROW(cli::DemoSignal({1, 0, 64, 1}), std::invalid_argument);
    EXPECT_THROW(cli::DemoSignal({1, 1, 63, 1}), std::invalid_argument);
    EXPECT_THROW(cli::DemoSignal({1, 5000, 64, 1}), std::invalid_argument);
}

TEST(DemoLabels, AreTheTenTwentyOnesFirstAndAllDifferent) {
    const std::vector<std::string> labels = cli::DemoLabels(512);
    EXPECT_EQ(labels.size(), 512u);
    EXPECT_EQ(labels[0], "Fp1");
    EXPECT_EQ(labels[18], "O2");
    EXPECT_EQ(std::set<std::string>(labels.begin(), labels.end()).size(), 512u);
    EXPECT_EQ(labels[511], "E512");
}

TEST(DemoLabels, HaveStandardPositions) {
    for (const std::string& label : cli::DemoLabels(128)) {
        EXPECT_TRUE(signal::StandardPosition(label).Known) << label;
    }
}

} // namespace orvanta::test
