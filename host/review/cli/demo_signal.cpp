// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/demo_signal.h"

#include "host/review/cli/demo_labels.h"
#include "host/signal_base/recording.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace orvanta::cli {

namespace {

constexpr double kStateSeconds = 30;
constexpr double kRampSeconds = 0.5; ///< in which the rhythm comes and goes
constexpr double kBlinkSeconds = 0.4;
constexpr double kBlinkMicrovolts = 120;
constexpr double kRhythmMicrovolts = 15;
constexpr double kBackgroundShare = 0.7;
constexpr double kMostSeconds = 7.0 * 24 * 3600;
constexpr unsigned kLowestRate = 64;
constexpr unsigned kMostRate = 100'000;
constexpr unsigned kMostChannels = 4096;

/// Streams of random numbers.
enum Stream : std::uint64_t { kShared, kRhythm, kBlinks, kTones, kFirstChannel };

std::uint64_t CheckedSeconds(const DemoParameters& parameters) {
    const double seconds = std::round(parameters.minutes * 60);
    if (!(seconds >= 1 && seconds <= kMostSeconds)) {
        throw std::invalid_argument("minutes: from one second to a week");
    }
    if (parameters.channels < 1 || parameters.channels > kMostChannels) {
        throw std::invalid_argument("channels: 1 to " + std::to_string(kMostChannels));
    }
    if (parameters.rate_hz < kLowestRate || parameters.rate_hz > kMostRate) {
        throw std::invalid_argument("rate: " + std::to_string(kLowestRate) + " to " +
                                    std::to_string(kMostRate) + " Hz");
    }
    return static_cast<std::uint64_t>(seconds);
}

/// Square of where \p value lies between \p low and \p high, 0 to 1, in steps of 1/64, which leave no trace
/// of the last bits of a position.
double Share(double value, double low, double high) {
    const double position = std::clamp((value - low) / (high - low), 0.0, 1.0);
    return std::round(position * position * 64) / 64;
}

/// How much of the rhythm is there at \p time: 1 in every second stretch, with ramps inside it.
double EyesClosed(double time) {
    const double phase = time - std::floor(time / (2 * kStateSeconds)) * 2 * kStateSeconds - kStateSeconds;
    return std::clamp(std::min(phase, kStateSeconds - phase) / kRampSeconds, 0.0, 1.0);
}

/// A time to the millisecond, as annotations give it.
double ToMilliseconds(double seconds) {
    return std::round(seconds * 1000) / 1000;
}

} // namespace

DemoSignal::DemoSignal(const DemoParameters& parameters)
    : seconds_(CheckedSeconds(parameters)), rate_(parameters.rate_hz),
      labels_(DemoLabels(parameters.channels)), shared_(rate_, RandomStream(parameters.seed, kShared)),
      rhythm_(rate_, RandomStream(parameters.seed, kRhythm)), background_(rate_), alpha_(rate_),
      blink_(rate_) {
    PlaceChannels(parameters);
    PlaceEvents(parameters.seed);
}

void DemoSignal::PlaceChannels(const DemoParameters& parameters) {
    for (const std::string& label : labels_) {
        Channel channel{PinkNoise(rate_, RandomStream(parameters.seed, kFirstChannel + channels_.size()))};
        const ElectInfo electrode = signal::StandardPosition(label);
        if (electrode.Known) {
            channel.posterior = Share(-electrode.Position.y, -0.3, 0.7);
            channel.frontal = Share(electrode.Position.y, 0.3, 0.95);
        }
        channels_.push_back(channel);
    }
}

void DemoSignal::PlaceEvents(std::uint64_t seed) {
    const auto end = static_cast<double>(seconds_);
    bool closed = false;
    for (double onset = 0; onset < end; onset += kStateSeconds, closed = !closed) {
        annotations_.push_back(
            {onset, std::min(kStateSeconds, end - onset), closed ? "eyes closed" : "eyes open"});
    }
    RandomStream random(seed, kBlinks);
    for (double onset = 4; onset + kBlinkSeconds < end; onset += ToMilliseconds(6 + 8 * random.Uniform())) {
        if (EyesClosed(onset) == 0 && EyesClosed(onset + kBlinkSeconds) == 0) {
            blinks_.push_back(onset);
            annotations_.push_back({onset, kBlinkSeconds, "bad blink"});
        }
    }
    random = RandomStream(seed, kTones);
    for (double onset = 2; onset < end; onset += ToMilliseconds(3 + 3 * random.Uniform())) {
        annotations_.push_back({onset, std::nullopt, "tone"});
    }
    std::stable_sort(annotations_.begin(), annotations_.end(),
                     [](const auto& a, const auto& b) { return a.onset_s < b.onset_s; });
}

void DemoSignal::FillShared() {
    for (unsigned i = 0; i < rate_; ++i) {
        const double time = static_cast<double>(second_) + static_cast<double>(i) / rate_;
        background_[i] = shared_.Next() * kBackgroundShare;
        alpha_[i] = rhythm_.Next() * kRhythmMicrovolts * EyesClosed(time);
        while (firstBlink_ < blinks_.size() && blinks_[firstBlink_] + kBlinkSeconds < time) {
            ++firstBlink_;
        }
        blink_[i] = 0;
        if (firstBlink_ < blinks_.size() && time > blinks_[firstBlink_]) {
            const double fromMiddle = (time - blinks_[firstBlink_]) * 2 / kBlinkSeconds - 1;
            const double height = 1 - fromMiddle * fromMiddle;
            blink_[i] = kBlinkMicrovolts * height * height;
        }
    }
}

void DemoSignal::NextSecond(std::vector<std::vector<double>>& samples) {
    FillShared();
    samples.resize(channels_.size());
    for (std::size_t c = 0; c < channels_.size(); ++c) {
        Channel& channel = channels_[c];
        samples[c].resize(rate_);
        for (unsigned i = 0; i < rate_; ++i) {
            samples[c][i] = kBackgroundShare * channel.background.Next() + background_[i] +
                            channel.posterior * alpha_[i] + channel.frontal * blink_[i];
        }
    }
    ++second_;
}

} // namespace orvanta::cli
