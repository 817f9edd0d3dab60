// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/epoch_shades.h"

#include "host/review/app/main_window/host_text.h"
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

/// As light or dark as can be seen on the ground once it is laid over it thinly.
owl::TColor Strong(const QColor& color, const QColor& ground) {
    constexpr double kOnDark = 0.62, kOnLight = 0.42, kHalf = 0.5;
    float hue = 0, saturation = 0, lightness = 0;
    color.getHslF(&hue, &saturation, &lightness);
    const bool dark = ground.lightnessF() < kHalf;
    return owl::FromQColor(
        QColor::fromHslF(std::max(0.0F, hue), saturation, static_cast<float>(dark ? kOnDark : kOnLight)));
}

std::string Legend(const QString& text, const SpectMacroResult& analysis) {
    return text.arg(QString::fromStdString(analysis.GetName())).toStdString();
}

void AddShades(const SpectMacroResult& analysis, EEGFileInfoType& recording, const Shade& look,
               std::vector<Shade>& shades) {
    XTimeList epochs;
    analysis.GetEventList(&recording, epochs, nullptr);
    for (const XTimeInterval& stretch : Covered(epochs)) {
        shades.push_back(look);
        shades.back().interval = stretch;
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
        AddShades(*main, recording,
                  {{},
                   Strong(owl::ToQColor(main->GetMacro().Color), base),
                   Legend(HostQText("shadeOfMain", "Main analysis: %1"), *main),
                   false},
                  shades);
    }
    if (const SpectMacroResult* secondary = Computed(manager.GetSecondary())) {
        const std::uint32_t color = secondary->GetMacro().Color;
        const bool same = main != nullptr && main->GetMacro().Color == color;
        AddShades(*secondary, recording,
                  {{},
                   Strong(same ? QColor(kAmber) : owl::ToQColor(color), base),
                   Legend(HostQText("shadeOfSecondary", "Secondary analysis: %1"), *secondary),
                   true},
                  shades);
    }
    return shades;
}

} // namespace orvanta::review
