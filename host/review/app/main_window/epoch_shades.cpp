// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/epoch_shades.h"

#include "host/toolkit/qt_painting.h"
#include "spectra_contract/spectra_mgr.h"

#include <algorithm>

namespace orvanta::review {

namespace {

constexpr QRgb kAmber = 0xFFE0A020;

const SpectMacroResult* Computed(const SpectMacroResult* analysis) {
    return analysis != nullptr && analysis->IsComputed() ? analysis : nullptr;
}

std::uint64_t GenerationOf(const SpectMacroResult* analysis) {
    return Computed(analysis) != nullptr ? analysis->GetGeneration() : 0;
}

/// The traces must stay readable on it.
owl::TColor Pale(const QColor& color, const QColor& base) {
    constexpr int kShare = 22; // percent
    const auto mixed = [&](int tone, int ground) { return (tone * kShare + ground * (100 - kShare)) / 100; };
    return owl::FromQColor(QColor(mixed(color.red(), base.red()), mixed(color.green(), base.green()),
                                  mixed(color.blue(), base.blue())));
}

void AddShades(const SpectMacroResult& analysis, EEGFileInfoType& recording, owl::TColor color,
               std::vector<Shade>& shades) {
    XTimeList epochs;
    analysis.GetEventList(&recording, epochs, nullptr);
    for (const XTimeInterval& stretch : Covered(epochs)) {
        shades.push_back({stretch, color});
    }
}

} // namespace

AnalysisState AnalysisStateOf(const SpectraMgr& manager, const QPalette& palette) {
    return {GenerationOf(manager.GetMain()), GenerationOf(manager.GetSecondary()), manager.GetMeasEntity(),
            palette.color(QPalette::Base).rgb()};
}

std::vector<XTimeInterval> Covered(const XTimeList& intervals) {
    std::vector<XTimeInterval> sorted;
    for (const auto& item : intervals) {
        sorted.push_back(item.Interval);
    }
    std::ranges::sort(sorted, {}, [](const XTimeInterval& interval) { return *interval.GetBeginPtr(); });
    std::vector<XTimeInterval> covered;
    for (const XTimeInterval& interval : sorted) {
        if (covered.empty() || *covered.back().GetEndPtr() < *interval.GetBeginPtr()) {
            covered.push_back(interval);
        } else {
            XTimeInterval& last = covered.back();
            last = {*last.GetBeginPtr(), std::max(*last.GetEndPtr(), *interval.GetEndPtr())};
        }
    }
    return covered;
}

std::vector<Shade> EpochShades(const SpectraMgr& manager, EEGFileInfoType& recording,
                               const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    std::vector<Shade> shades;
    const SpectMacroResult* main = Computed(manager.GetMain());
    if (main != nullptr) {
        AddShades(*main, recording, Pale(owl::ToQColor(main->GetMacro().Color), base), shades);
    }
    if (const SpectMacroResult* secondary = Computed(manager.GetSecondary())) {
        const std::uint32_t color = secondary->GetMacro().Color;
        const bool same = main != nullptr && main->GetMacro().Color == color;
        AddShades(*secondary, recording, Pale(same ? QColor(kAmber) : owl::ToQColor(color), base), shades);
    }
    return shades;
}

} // namespace orvanta::review
