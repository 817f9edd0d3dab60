// SPDX-License-Identifier: GPL-3.0-or-later
// What the user set, kept from session to session.
#include "host/review/app/traces/event_labels.h"
#include "host/review/app/traces/trace_scales.h"
#include "host/review/app/traces/trace_view_impl.h"
#include "spectra_contract/platform.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace orvanta::review {

namespace {

constexpr double kMostCut = 100000;
constexpr int kLongestText = 16384;

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
    state.negativeUp = view.ReadChildInt("NegativeUp", standard.negativeUp ? 1 : 0) != 0;
    model.Reload();
    recentLabels = SplitNames(ReadText("RecentLabels"));
    LoadHidden();
}

std::string TraceView::Impl::ReadText(const std::string& key) const {
    std::string text(kLongestText + 1, '\0');
    view.GW().GetPlatform()->ReadString(view.GetChildName().c_str(), key.c_str(), "", text.data(),
                                        kLongestText);
    text.resize(std::strlen(text.c_str()));
    return text;
}

void TraceView::Impl::LoadHidden() {
    const std::vector<std::string> names = SplitNames(ReadText(HiddenKey()));
    model.SetHidden({names.begin(), names.end()});
}

void TraceView::Impl::StoreHidden() const {
    const std::vector<std::string> names(model.Hidden().begin(), model.Hidden().end());
    view.GW().GetPlatform()->WriteString(view.GetChildName().c_str(), HiddenKey().c_str(),
                                         JoinedNames(names).c_str());
}

std::string TraceView::Impl::HiddenKey() const {
    return "Hidden." + montage;
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
    view.WriteChildInt("NegativeUp", state.negativeUp ? 1 : 0);
    view.GW().GetPlatform()->WriteString(view.GetChildName().c_str(), "RecentLabels",
                                         JoinedNames(recentLabels).c_str());
}

} // namespace orvanta::review
