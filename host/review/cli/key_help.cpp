// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/macro_keys.h"
#include "host/review/cli/output.h"

#include <string_view>
#include <utility>

namespace orvanta::cli {

namespace {

constexpr std::pair<std::string_view, std::string_view> kMeanings[] = {
    {"fft_seconds", "length of the FFT window, in seconds"},
    {"overlap", "of windows that follow each other, in percent"},
    {"window", "the taper, such as Hanning, Hamming, Blackman or Rectangular"},
    {"mode", "what is analysed: all, duration, states or spots"},
    {"duration", "how many seconds, with mode=duration"},
    {"states", "labels of events with a duration, with mode=states"},
    {"spots", "labels of events that mark a moment, with mode=spots"},
    {"reject", "labels of events that are left out"},
    {"pre_trigger_ms", "start of a segment against its spot event; negative is before it"},
    {"trigger_duration_ms", "length of a segment"},
    {"spot_steps", "segments for each spot event"},
    {"spot_step_ms", "from the start of one segment to that of the next"},
    {"epochs_mode", "all epochs, the first ones, or random ones: all, first or random"},
    {"epochs_count", "epochs at most, with first and random"},
    {"contrast", "class of the analysis, for regress and export"},
    {"color", "of its curves, #RRGGBB"},
};

} // namespace

std::string KeyHelp() {
    constexpr int kColumns = 26;
    std::string text = "KEY=VALUE, each with its default:\n";
    const SpectraMacro defaults;
    for (const auto& [key, meaning] : kMeanings) {
        text += "  " + Pad(KeyToText(defaults, key), kColumns) + std::string(meaning) + "\n";
    }
    return text +
           "Labels are separated by commas: --set \"reject=bad blink,movement\". A comma within a label "
           "is \"\\,\". orvanta info lists the labels of a recording.";
}

} // namespace orvanta::cli
