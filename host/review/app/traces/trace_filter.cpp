// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_filter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvanta::review {

namespace {

constexpr double kNotchQuality = 30;
constexpr double kDecay = 1e-6;
/// States below any sample's least step; without it a flat signal would leave numbers too small for the
/// processor's fast path.
constexpr double kNothing = 1e-30;

/// Butterworth of second order by the bilinear transform (A. Oppenheim, R. Schafer, Discrete-Time Signal
/// Processing, section on bilinear transformation), with K = tan(π f / rate).
Biquad Cut(double hz, double rate, bool isLowCut) {
    const double k = std::tan(std::numbers::pi * hz / rate);
    const double norm = 1 / (1 + std::numbers::sqrt2 * k + k * k);
    const double a1 = 2 * (k * k - 1) * norm;
    const double a2 = (1 - std::numbers::sqrt2 * k + k * k) * norm;
    if (isLowCut) {
        return {norm, -2 * norm, norm, a1, a2};
    }
    const double b = k * k * norm;
    return {b, 2 * b, b, a1, a2};
}

/// S. Orfanidis, Introduction to Signal Processing, section 11.3: bandwidth f / quality at −3 dB.
Biquad Notch(double hz, double rate) {
    const double gain = 1 / (1 + std::tan(std::numbers::pi * hz / kNotchQuality / rate));
    const double turn = -2 * gain * std::cos(2 * std::numbers::pi * hz / rate);
    return {gain, turn, gain, turn, 2 * gain - 1};
}

/// Largest absolute value of the poles.
double PoleRadius(const Biquad& section) {
    const double root = section.a1 * section.a1 / 4 - section.a2;
    return root < 0 ? std::sqrt(section.a2) : std::abs(section.a1 / 2) + std::sqrt(root);
}

using State = std::array<double, 2>;

/// Sections one behind the other in one pass: while one waits for its last value, the others work.
template <std::size_t kSections>
void ApplyAtOnce(const Biquad* sections, State* states, std::span<double> values) {
    std::array<Biquad, kSections> f;
    std::array<State, kSections> z;
    std::copy_n(sections, kSections, f.begin());
    std::copy_n(states, kSections, z.begin());
    for (double& value : values) {
        double x = value;
        for (std::size_t s = 0; s < kSections; ++s) {
            const double y = f[s].b0 * x + z[s][0];
            z[s][0] = (f[s].b1 * x + z[s][1]) - f[s].a1 * y;
            z[s][1] = f[s].b2 * x - f[s].a2 * y;
            x = y;
        }
        value = x;
    }
    for (std::size_t s = 0; s < kSections; ++s) {
        states[s] = {std::abs(z[s][0]) < kNothing ? 0 : z[s][0], std::abs(z[s][1]) < kNothing ? 0 : z[s][1]};
    }
}

} // namespace

std::vector<Biquad> SectionsOf(const TraceFilter& filter, double rate) {
    const auto works = [&](double hz) { return hz > 0 && hz < rate / 2; };
    std::vector<Biquad> sections;
    if (works(filter.lowCut)) {
        sections.push_back(Cut(filter.lowCut, rate, true));
    }
    if (works(filter.highCut)) {
        sections.push_back(Cut(filter.highCut, rate, false));
    }
    if (works(filter.notch)) {
        sections.push_back(Notch(filter.notch, rate));
    }
    return sections;
}

std::vector<Biquad> SectionsOf(const TraceFilter& filter, const TraceChannel& line) {
    const bool filtered = line.unit == "\u00B5V" && line.type != Sensor::Respiration;
    return filtered ? SectionsOf(filter, line.rate) : std::vector<Biquad>{};
}

std::int64_t SettlingSamples(std::span<const Biquad> sections, std::int64_t most) {
    double slowest = 0;
    for (const Biquad& section : sections) {
        const double perSample = -std::log(PoleRadius(section));
        // A cut of next to 0 Hz has its pole at 1 to the last digit, and never settles.
        slowest = std::max(slowest, perSample > 0 ? -std::log(kDecay) / perSample : HUGE_VAL);
    }
    return slowest < static_cast<double>(most) ? static_cast<std::int64_t>(std::ceil(slowest)) : most;
}

FilterRun::FilterRun(std::vector<Biquad> sections)
    : sections_(std::move(sections)), states_(sections_.size()) {}

void FilterRun::Settle(double value) {
    for (std::size_t s = 0; s < sections_.size(); ++s) {
        const Biquad& f = sections_[s];
        const double settled = value * (f.b0 + f.b1 + f.b2) / (1 + f.a1 + f.a2);
        states_[s] = {settled - f.b0 * value, f.b2 * value - f.a2 * settled};
        value = settled;
    }
    running_ = true;
}

void FilterRun::ApplyFinite(std::span<double> values) {
    if (!running_) {
        Settle(values.front());
    }
    std::span<const Biquad> sections(sections_);
    std::span<State> states(states_);
    while (!sections.empty()) {
        const std::size_t count = std::min<std::size_t>(3, sections.size());
        const auto pass = count == 3 ? ApplyAtOnce<3> : count == 2 ? ApplyAtOnce<2> : ApplyAtOnce<1>;
        pass(sections.data(), states.data(), values);
        sections = sections.subspan(count);
        states = states.subspan(count);
    }
}

void FilterRun::Apply(std::span<double> values) {
    if (sections_.empty()) {
        return;
    }
    const auto isFinite = [](double value) { return std::isfinite(value); };
    for (auto from = values.begin(); from != values.end();) {
        const auto to = std::find_if_not(from, values.end(), isFinite);
        if (from != to) {
            ApplyFinite({from, to});
        }
        from = std::find_if(to, values.end(), isFinite);
        running_ = running_ && to == values.end();
    }
}

} // namespace orvanta::review
