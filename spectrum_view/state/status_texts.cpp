// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/state/status_texts.h"

#include "host/toolkit/cut_text.h"
#include "host/toolkit/form_texts.h"
#include "side_bar/texts.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/painting/labels.h"

#include <QLocale>

#include <array>

namespace orvanta::spectrum_view {

StatusTexts StatusTextsOf(const SpectraMgr& manager, const PModule* messages) {
    return {manager.GetCurrMeasEntityStr(), owl::TextOr(messages, "Spectrum", "HorHz", "Hz"),
            "Vert : " + manager.GetCurrEntityMeasUnit()};
}

std::string TimeIntervalText(const SpectraMgr& manager, const PModule* messages) {
    if (manager.GetMain() == nullptr) {
        return {};
    }
    constexpr std::size_t kBuffer = 128;
    std::array<char, kBuffer> processed{};
    manager.GetMain()->GetProcDataString(processed.data(), processed.size());
    const std::string format = owl::TextOr(messages, "Spectrum", "TimeInterval", "Analyzed: %s");
    return owl::CutAt(side_bar::FillIn(format, {processed.data()}), kBuffer - 1);
}

std::string TitleOf(const SpectraMgr& manager, const EEGFileInfoType& recording, const PModule* messages) {
    if (manager.GetMain() == nullptr || !manager.GetMain()->IsComputed()) {
        return {};
    }
    std::optional<std::string> threshold;
    if (manager.GetSecondary() != nullptr && manager.GetShowTTest()) {
        threshold =
            QLocale().toString(manager.GetPThreshold(), 'g', QLocale::FloatingPointShortest).toStdString();
    }
    return ViewTitle(recording.GetLabel(), manager.GetMain()->GetName(), TimeIntervalText(manager, messages),
                     threshold);
}

} // namespace orvanta::spectrum_view
