// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/state/status_texts.h"

#include "host/toolkit/cut_text.h"
#include "host/toolkit/form_texts.h"
#include "side_bar/measure_names.h"
#include "side_bar/texts.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/painting/labels.h"

#include <QLocale>

#include <array>

namespace orvanta::spectrum_view {

namespace {

/// "299 epochs, 300.0 s" with the word of the user's language.
std::string InWords(const std::string& english, const PModule* messages) {
    const std::size_t blank = english.find(' ');
    const std::size_t comma = english.find(',');
    if (blank == std::string::npos || comma == std::string::npos || comma < blank) {
        return english;
    }
    const std::string word = english.substr(blank + 1, comma - blank - 1);
    const std::string translated = word == "epoch" ? owl::TextOr(messages, "Spectrum", "epoch", "epoch")
                                                   : owl::TextOr(messages, "Spectrum", "epochs", "epochs");
    return english.substr(0, blank + 1) + translated + english.substr(comma);
}

} // namespace

StatusTexts StatusTextsOf(const SpectraMgr& manager, const PModule* messages) {
    return {side_bar::EntityName(manager, manager.GetMeasEntity()),
            owl::TextOr(messages, "Spectrum", "HorHz", "Hz"), "Vert : " + manager.GetCurrEntityMeasUnit()};
}

std::string TimeIntervalText(const SpectraMgr& manager, const PModule* messages) {
    if (manager.GetMain() == nullptr) {
        return {};
    }
    constexpr std::size_t kBuffer = 128;
    std::array<char, kBuffer> processed{};
    manager.GetMain()->GetProcDataString(processed.data(), processed.size());
    const std::string format = owl::TextOr(messages, "Spectrum", "TimeInterval", "Analyzed: %s");
    return owl::CutAt(side_bar::FillIn(format, {InWords(processed.data(), messages)}), kBuffer - 1);
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
