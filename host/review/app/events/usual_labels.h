// SPDX-License-Identifier: GPL-3.0-or-later
// The labels that people mark most, in one place: labels count letter by letter, and what is offered for
// marking must be what macros look for.
#pragma once

#include <array>

namespace orvanta::review {

/// Stretches that analyses are to leave out, as they are offered. "bad" first, by the habit of BIDS.
inline constexpr std::array kArtifactLabels{"bad", "artifact", "bad blink", "bad movement", "bad muscle"};

/// What other programs and other hands write for the same. Not offered, so that one spelling wins.
inline constexpr std::array kOtherArtifactLabels{
    "Artifact",     "ARTIFACT",    "Artefact",     "artefact",     "Artefakt",
    "BAD",          "Bad",         "Bad Interval", "BAD_ACQ_SKIP", "BAD boundary",
    "BAD_boundary", "Bad segment", "bad segment",  "bad_segment",  "BAD_segment"};

/// States that are compared. Offered with a stretch, besides the artifacts.
inline constexpr std::array kStateLabels{"eyes open", "eyes closed", "seizure", "sleep"};

/// Moments.
inline constexpr std::array kSpotLabels{"spike", "blink", "movement", "note"};

} // namespace orvanta::review
