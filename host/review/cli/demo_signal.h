// SPDX-License-Identifier: GPL-3.0-or-later
// A made-up EEG for trying things out.
#pragma once

#include "host/review/cli/demo_noise.h"
#include "host/signal_base/recording_data.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orvanta::cli {

struct DemoParameters {
    double minutes = 5; ///< rounded to whole seconds, at least one, at most a week
    unsigned channels = 19;
    unsigned rate_hz = 256; ///< at least 64
    std::uint64_t seed = 1;
};

/// An EEG in µV: 1/f background, half of which all channels share, and stretches of 30 s with open and closed
/// eyes; in the latter a 10 Hz rhythm over the back of the head, in the former blinks over its front. Built
/// from additions, multiplications, divisions and square roots only, so that the same parameters give the
/// same samples everywhere.
class DemoSignal {
public:
    /// \throws std::invalid_argument for parameters out of range
    explicit DemoSignal(const DemoParameters& parameters);

    std::uint64_t Seconds() const { return seconds_; }
    unsigned Rate() const { return rate_; }
    /// 19 names of the 10-20 system, then 10-10, then 10-05, then "E" and a number.
    const std::vector<std::string>& Labels() const { return labels_; }
    /// Ascending: "eyes open" and "eyes closed" (30 s each), "bad blink" (0.4 s), "tone" (no duration).
    const std::vector<signal::Annotation>& Annotations() const { return annotations_; }
    /// Fills in the next second: a vector of rate_hz samples per channel.
    void NextSecond(std::vector<std::vector<double>>& samples);

private:
    struct Channel {
        PinkNoise background;
        double posterior = 0; ///< share of the rhythm, 0 to 1
        double frontal = 0;   ///< share of the blinks, 0 to 1
    };

    void PlaceChannels(const DemoParameters& parameters);
    void PlaceEvents(std::uint64_t seed);
    void FillShared();

    std::uint64_t seconds_ = 0;
    unsigned rate_;
    std::vector<std::string> labels_;
    std::vector<Channel> channels_;
    std::vector<signal::Annotation> annotations_;
    std::vector<double> blinks_; ///< onsets in seconds
    PinkNoise shared_;
    Rhythm rhythm_;
    std::uint64_t second_ = 0;                       ///< the next one
    std::size_t firstBlink_ = 0;                     ///< the first that has not passed
    std::vector<double> background_, alpha_, blink_; ///< of the second at hand, the same for all channels
};

} // namespace orvanta::cli
