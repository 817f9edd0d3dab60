// SPDX-License-Identifier: GPL-3.0-or-later
// What the user set, kept from session to session.
#include "host/review/app/traces/trace_scales.h"
#include "host/review/app/traces/trace_view_impl.h"

#include <algorithm>
#include <cmath>

namespace orvanta::review {

namespace {

constexpr double kMostCut = 100000;

std::string GainKey(TraceGroup group) {
    return std::string("Gain") + NameOf(group);
}

/// The stored value, or \p standard when it is none or outside of the range.
double Sane(double value, double least, double most, double standard) {
    return std::isfinite(value) && value >= least && value <= most ? value : standard;
}

} // namespace

void TraceView::Impl::Load() {
    const auto read = [this](const char* key, double standard, double least, double most) {
        return Sane(view.ReadChildDouble(key, standard), least, most, standard);
    };
    TraceState& state = model.State();
    const TraceState standard;
    state.window.duration = read("PageSeconds", standard.window.duration, kShortestPage, kLongestPage);
    for (const TraceGroup group : kAllGroups) {
        state.window.gains[group] = read(GainKey(group).c_str(), standard.window.gains[group],
                                         kSensitivities.front(), kSensitivities.back());
    }
    state.filter.lowCut = read("LowCut", standard.filter.lowCut, 0, kMostCut);
    state.filter.highCut = read("HighCut", standard.filter.highCut, 0, kMostCut);
    state.filter.notch = read("Notch", standard.filter.notch, 0, kMostCut);
    state.centered = view.ReadChildInt("Centered", standard.centered ? 1 : 0) != 0;
    model.Reload();
}

void TraceView::Impl::Store() {
    const TraceState& state = model.State();
    // Not the page of a zoom that was not left.
    const TraceWindow& window = zooms.empty() ? state.window : zooms.front();
    view.WriteChildDouble("PageSeconds", window.duration);
    for (const TraceGroup group : kAllGroups) {
        view.WriteChildDouble(GainKey(group).c_str(), window.gains[group]);
    }
    view.WriteChildDouble("LowCut", state.filter.lowCut);
    view.WriteChildDouble("HighCut", state.filter.highCut);
    view.WriteChildDouble("Notch", state.filter.notch);
    view.WriteChildInt("Centered", state.centered ? 1 : 0);
}

} // namespace orvanta::review
