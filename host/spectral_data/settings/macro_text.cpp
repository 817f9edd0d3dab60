// SPDX-License-Identifier: GPL-3.0-or-later
// What a macro says of itself.
#include "host/spectral_data/files/number_text.h"
#include "spectra_contract/spectra_macro.h"

#include <algorithm>

using orvanta::spectral::NumberText;

namespace {

using Labels = std::set<std::string>;

/// Bytes that a file name may not hold on one of the systems that files travel to.
bool IsUnfitForFileName(char c) {
    return static_cast<unsigned char>(c) < 0x20 ||
           std::string_view("\"*/:<>?|\\").find(c) != std::string_view::npos;
}

std::string Join(const Labels& labels, const char* separator) {
    std::string text;
    for (const std::string& label : labels) {
        text += (text.empty() ? "" : separator) + label;
    }
    return text.empty() ? "None" : text;
}

void DescribeInterval(const SpectraMacro& macro, std::ostringstream& text) {
    switch (macro.GetTimeIntervalSelectMode()) {
    case SpectraMacro::TimeIntervalSelectMode::AllRecording:
        text << "Interval: All recording\n";
        break;
    case SpectraMacro::TimeIntervalSelectMode::ByDuration:
        text << "Interval: By duration\nDuration: " << std::to_string(macro.GetFixedDurationSec()) << " s\n";
        break;
    case SpectraMacro::TimeIntervalSelectMode::ByStateEvents:
        text << "Interval: By state events\nState events: " << Join(macro.GetAcceptStateList(), ", ") << '\n';
        break;
    case SpectraMacro::TimeIntervalSelectMode::BySpotEvents:
        text << "Interval: By spot events\nSpot events: " << Join(macro.GetAcceptSpotList(), ", ")
             << "\nPre-trigger: " << std::to_string(macro.GetPreTriggerMS())
             << " ms\nSegment duration: " << std::to_string(macro.GetTrgDurationMS())
             << " ms\nSteps: " << std::to_string(macro.SpotStepCount) << " x "
             << std::to_string(macro.SpotStepInc) << " ms\n";
        break;
    }
}

std::string DescribeEpochs(const SpectraMacro& macro) {
    const std::string count = std::to_string(macro.GetNumEpochsToUse());
    switch (macro.GetEpochsSelMode()) {
    case SpectraMacro::EpochsSelectionMode::FirstN:
        return "First " + count;
    case SpectraMacro::EpochsSelectionMode::RandomN:
        return "Random " + count + " in time order";
    case SpectraMacro::EpochsSelectionMode::All:
        break;
    }
    return "All";
}

} // namespace

std::string SpectraMacro::GetProcEventString() const {
    std::string text = "All";
    switch (GetTimeIntervalSelectMode()) {
    case TimeIntervalSelectMode::AllRecording:
        break;
    case TimeIntervalSelectMode::ByDuration:
        text = std::to_string(GetFixedDurationSec()) + "s";
        break;
    case TimeIntervalSelectMode::ByStateEvents:
        text = Join(GetAcceptStateList(), "+");
        break;
    case TimeIntervalSelectMode::BySpotEvents:
        text = Join(GetAcceptSpotList(), "+");
        break;
    }
    std::replace_if(text.begin(), text.end(), IsUnfitForFileName, '-');
    return text;
}

// Whole numbers go through to_string: a stream would group digits in the user's way.
void SpectraMacro::GetLongDescrStr(std::ostringstream& text) const {
    text << "FFT window: " << NumberText(GetFFTSeconds()) << " s\n"
         << "Overlap: " << std::to_string(GetOverlapPerc()) << " %\n"
         << "Windowing: " << GetDSPWindowStr() << '\n';
    DescribeInterval(*this, text);
    text << "Events to exclude: " << Join(GetRejectEventsList(), ", ") << '\n'
         << "Epochs: " << DescribeEpochs(*this) << '\n'
         << "Contrast value: " << std::to_string(GetContrastValue()) << '\n';
}
